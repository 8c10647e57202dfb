#pragma once

#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "scene/iselectable.h"
#include "tests/support/testsimulation.h"
#include "view/annotations/annotationcolormap.h"

#include <stdexcept>

// One settable value of the display state: stored and given back.
#define TEST_VALUE(Type, setter, getter, initial)                                                            \
    void setter(Type value) override { m_##getter = value; }                                                 \
    Type getter() const override { return m_##getter; }                                                      \
    Type m_##getter = initial;
#define TEST_RECORD(Type, setter, getter, initial)                                                           \
    void setter(const Type& value) override { m_##getter = value; }                                          \
    Type getter() const override { return m_##getter; }                                                      \
    Type m_##getter = initial;

/** A drawable that keeps its display state and draws nothing. It stands in the manager while it lives. */
class CTestDrawable : public IDrawable
{
public:
    CTestDrawable(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
        : m_itemId(nItemId), m_viewId(nViewId), m_nSimulationId(nSimulationId), m_nSerial(s_nNextSerial++)
    {
        setAutoDelete(false);
        m_legend.setDrawableSerial(m_nSerial);
        CDrawableManager::Instance().Add(nViewId, nSimulationId, this);
    }
    ~CTestDrawable() override { CDrawableManager::Instance().Remove(this); }

    TEST_VALUE(bool, setVisible, isVisible, true)
    TEST_VALUE(bool, setForceInvisible, forceInvisible, false)
    TEST_VALUE(bool, setNodeVisible, nodeVisible, false)
    TEST_VALUE(bool, setDisplayOnNodes, displayOnNodes, true)
    TEST_VALUE(bool, setShowHoles, showHoles, false)
    TEST_VALUE(DisplayType_e, setDisplayType, displayType, DisplayShaded)
    TEST_VALUE(bool, setDrawWireframe, drawWireframe, false)
    TEST_VALUE(bool, setDrawShaded, drawShaded, true)
    TEST_VALUE(bool, setDrawNodes, drawNodes, false)
    TEST_VALUE(bool, setDrawOutlines, drawOutlines, false)
    TEST_VALUE(bool, setDrawContours, drawContoursFlag, false)
    TEST_VALUE(bool, setDrawVectors, drawVectorsFlag, false)
    TEST_VALUE(qint64, setContourCount, contourCount, 16)
    TEST_VALUE(bool, setGeometricColor, geometricColor, false)
    TEST_RECORD(QColor, setShadeColor, shadeColor, Qt::gray)
    TEST_RECORD(QColor, setWireframeColor, wireframeColor, Qt::black)
    TEST_VALUE(double, setLineThickness, lineThickness, 1.0)
    TEST_VALUE(double, setAlphaValue, alphaValue, 1.0)
    TEST_VALUE(bool, setPreview, isPreview, false)
    TEST_VALUE(qint64, setScalarVariable, scalarVariable, -1)
    TEST_VALUE(qint64, setVectorVariable, vectorVariable, -1)
    TEST_VALUE(qint64, setThresholdVariable, thresholdVariable, -1)
    TEST_VALUE(bool, setThresholdEnable, thresholdEnable, false)
    TEST_RECORD(QPointF, setThresholdRange, thresholdRange, QPointF())
    TEST_VALUE(qint64, setVectorPlane, vectorPlane, 0)
    TEST_VALUE(qint64, setVectorSkip, vectorSkip, 0)
    TEST_VALUE(double, setVectorHeadScale, vectorHeadScale, 1.0)
    TEST_VALUE(double, setVectorBodyScale, vectorBodyScale, 1.0)
    TEST_VALUE(bool, setExtended, isExtended, false)
    TEST_RECORD(QMatrix4x4, setExtensionMatrix, extensionMatrix, QMatrix4x4())
    TEST_RECORD(SColormapRecord, setColormap, colormap, SColormapRecord())
    TEST_VALUE(bool, setColormapBindToLocal, colormapBindToLocal, false)
    TEST_VALUE(qint64, setItemId, itemId, -1)
    TEST_VALUE(qint64, setViewId, viewId, -1)

    void setDisplayTypeQuick(DisplayType_e eType) override { setDisplayType(eType); }
    DisplayType_e effectiveDisplayType() const override { return displayType(); }
    bool drawContours() const override { return drawContoursFlag() && scalarVariable() != -1; }
    bool drawVectors() const override { return drawVectorsFlag() && vectorVariable() != -1; }
    bool canDemote() const override { return false; }
    qint64 effectiveScalarVariable() const override { return scalarVariable(); }
    bool usesColormap() const override { return scalarVariable() != -1 && !geometricColor(); }
    qint32 colormapType() const override { return m_colormap.nId; }
    void setColormapType(qint32 nId) override { m_colormap.nId = nId; }
    void setColormapValues(double dMinimum, double dMaximum) override
    {
        m_colormap.dMinimum = dMinimum;
        m_colormap.dMaximum = dMaximum;
    }
    QPointF colormapRange() const override
    {
        const bool bLocal = colormapBindToLocal() && m_colormap.HasLocalRange();
        return bLocal ? scalarRange() : QPointF(m_colormap.dMinimum, m_colormap.dMaximum);
    }
    QPointF scalarRange() const override { return {m_colormap.dLocalMinimum, m_colormap.dLocalMaximum}; }
    void saveColormap() override { m_saved = m_colormap; }
    void restoreColormap() override { m_colormap = m_saved; }
    CAnnotationColormap* annotationColormap() const override { return &m_legend; }

    void run() override { build(); }
    void deleteLater() override { delete this; }
    void deleteDisplayLists() override {}
    bool alwaysRebuild() const override { return false; }
    bool needsBuild() const override { return false; }
    void build() override {}
    QByteArray toBinary() const override { return {}; }
    QJsonObject toJson() const override { return {}; }
    bool fromJson(const QJsonObject&) override { return true; }
    bool fromBinary(const QByteArray&, double) override { return true; }
    qint64 serial() const override { return m_nSerial; }
    qint64 simulationId() const override { return m_nSimulationId; }
    qint64 blockId() const override { return m_nBlockId; }
    qint64 blockIdEx() const override { return -1; }
    QVector<ISelectable*> ownerSelectables() const override { return m_owners; }
    void upload() override {}
    void draw(bool) override {}
    int shaderKey() const override { return 2; }
    QMatrix4x4 modelMatrix() const override { return {}; }
    void addBounds(DVector3D&, DVector3D&, const QMatrix4x4&) const override {}
    DVector3D boundsMinimum() const override { return {}; }
    DVector3D boundsMaximum() const override { return {}; }
    void invalidateGeometry() override {}
    void invalidateValues() override {}
    void invalidateThresholds() override {}
    void invalidateVectors() override {}
    void invalidateContours() override {}
    void invalidateAll() override {}
    bool isSelected(bool) const override { return false; }
    bool isHighlighted(bool) const override { return false; }
    SPickedPoint minimumRecord() const override { return {}; }
    SPickedPoint maximumRecord() const override { return {}; }
    void pointInformation(SPickedPoint&) const override {}
    bool hasPickTree() const override { return false; }
    CGLTree& pickTree() override { throw std::logic_error("a stand-in can't be picked"); }
    SMeshStatistics meshStatistics() const override { return {}; }
    QString description() const override { return {}; }

    qint64 m_nBlockId = -1;
    QVector<ISelectable*> m_owners;

private:
    static inline qint64 s_nNextSerial = 0;

    qint64 m_nSimulationId;
    qint64 m_nSerial;
    SColormapRecord m_saved;
    mutable CAnnotationColormap m_legend;
};

#undef TEST_VALUE
#undef TEST_RECORD

/** A selectable with drawables, which go along with it. */
class CShownSelectable : public CTestSelectable
{
public:
    using CTestSelectable::CTestSelectable;
    ~CShownSelectable() override { qDeleteAll(m_drawables); }

    qint64 blockId() const override { return m_nBlockId; }

    /** A new drawable of a block's item, coloured by the variable. */
    CTestDrawable* Show(qint64 nVariableId, qint64 nBlockId = -1)
    {
        auto* const pDrawable = new CTestDrawable(viewId(), simulationId(), itemId());
        pDrawable->setScalarVariable(nVariableId);
        pDrawable->m_nBlockId = m_nBlockId = nBlockId;
        pDrawable->m_owners = {this};
        m_drawables.append(pDrawable);
        return pDrawable;
    }

private:
    qint64 m_nBlockId = -1;
};
