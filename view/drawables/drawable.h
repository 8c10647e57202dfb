#pragma once

#include "scene/idrawable.h"

#include <QObject>

#include <memory>

class CGLTree;

/**
 * What all drawables have in common: their identity, their display state with its two stored forms, what of
 * them has to be built anew, and the values that they set on their program before they draw. Derived classes
 * build geometry and draw it.
 */
class CDrawable : public QObject, public IDrawable
{
    Q_OBJECT

public:
    /** Enters itself into CDrawableManager. */
    CDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId, int nShaderKey);
    ~CDrawable() override;

    void run() override { build(); }
    void deleteLater() override { QObject::deleteLater(); }
    void deleteDisplayLists() override {}
    bool alwaysRebuild() const override { return false; }

    // Stored state (drawable_store.cpp).
    QByteArray toBinary() const override;
    bool fromBinary(const QByteArray& bytes, double dVersion) override;
    QJsonObject toJson() const override;
    bool fromJson(const QJsonObject& display) override;

    // Identity.
    qint64 serial() const override { return m_nSerial; }
    void setItemId(qint64 nItemId) override { m_nItemId = nItemId; }
    qint64 itemId() const override { return m_nItemId; }
    void setViewId(qint64 nViewId) override;
    qint64 viewId() const override { return m_nViewId; }
    qint64 simulationId() const override { return m_nSimulationId; }
    qint64 blockId() const override { return m_nBlockId; }
    qint64 blockIdEx() const override { return -1; }
    QVector<ISelectable*> ownerSelectables() const override { return m_owners; }
    void addOwner(ISelectable* pOwner) { m_owners.append(pOwner); }
    void removeOwner(ISelectable* pOwner) { m_owners.removeAll(pOwner); }

    // State (drawable_state.cpp).
    void setVisible(bool bVisible) override { m_bVisible = bVisible; }
    bool isVisible() const override { return m_bVisible && !m_bForceInvisible; }
    void setForceInvisible(bool bInvisible) override { m_bForceInvisible = bInvisible; }
    bool forceInvisible() const override { return m_bForceInvisible; }
    void setNodeVisible(bool bVisible) override { m_bNodeVisible = bVisible; }
    bool nodeVisible() const override { return m_bNodeVisible; }
    void setDisplayOnNodes(bool bOnNodes) override;
    bool displayOnNodes() const override { return m_bDisplayOnNodes; }
    void setShowHoles(bool bShow) override;
    bool showHoles() const override { return m_bShowHoles; }
    void setDisplayType(DisplayType_e eType) override;
    void setDisplayTypeQuick(DisplayType_e eType) override;
    DisplayType_e displayType() const override { return m_eDisplayType; }
    DisplayType_e effectiveDisplayType() const override;
    void setDrawWireframe(bool bDraw) override { m_bDrawWireframe = bDraw; }
    bool drawWireframe() const override { return m_bDrawWireframe; }
    void setDrawShaded(bool bDraw) override { m_bDrawShaded = bDraw; }
    bool drawShaded() const override { return m_bDrawShaded; }
    void setDrawNodes(bool bDraw) override { m_bDrawNodes = bDraw; }
    bool drawNodes() const override { return m_bDrawNodes; }
    void setDrawOutlines(bool bDraw) override { m_bDrawOutlines = bDraw; }
    bool drawOutlines() const override { return m_bDrawOutlines; }
    void setDrawContours(bool bDraw) override { m_bDrawContours = bDraw; }
    bool drawContours() const override;
    bool drawContoursFlag() const override { return m_bDrawContours; }
    void setDrawVectors(bool bDraw) override { m_bDrawVectors = bDraw; }
    bool drawVectors() const override;
    bool drawVectorsFlag() const override { return m_bDrawVectors; }
    bool canDemote() const override { return true; }
    void setContourCount(qint64 nCount) override;
    qint64 contourCount() const override { return m_nContourCount; }
    void setGeometricColor(bool bGeometric) override;
    bool geometricColor() const override { return m_bGeometricColor; }
    void setShadeColor(const QColor& color) override { m_shadeColor = color; }
    QColor shadeColor() const override { return m_shadeColor; }
    void setWireframeColor(const QColor& color) override { m_wireframeColor = color; }
    QColor wireframeColor() const override { return m_wireframeColor; }
    void setLineThickness(double dPixels) override { m_dLineThickness = dPixels; }
    double lineThickness() const override { return m_dLineThickness; }
    void setAlphaValue(double dAlpha) override { m_dAlpha = dAlpha; }
    double alphaValue() const override { return m_dAlpha; }
    void setPreview(bool bPreview) override { m_bPreview = bPreview; }
    bool isPreview() const override { return m_bPreview; }
    void setScalarVariable(qint64 nId) override;
    qint64 scalarVariable() const override { return m_nScalarVariable; }
    qint64 effectiveScalarVariable() const override;
    void setVectorVariable(qint64 nId) override;
    qint64 vectorVariable() const override { return m_nVectorVariable; }
    void setThresholdVariable(qint64 nId) override;
    qint64 thresholdVariable() const override { return m_nThresholdVariable; }
    void setThresholdEnable(bool bEnable) override { m_bThresholdEnable = bEnable; }
    bool thresholdEnable() const override { return m_bThresholdEnable; }
    void setThresholdRange(const QPointF& range) override { m_thresholdRange = range; }
    QPointF thresholdRange() const override { return m_thresholdRange; }
    void setVectorPlane(qint64 nPlane) override { m_nVectorPlane = nPlane; }
    qint64 vectorPlane() const override { return m_nVectorPlane; }
    void setVectorSkip(qint64 nSkip) override { m_nVectorSkip = nSkip; }
    qint64 vectorSkip() const override { return m_nVectorSkip; }
    void setVectorHeadScale(double dScale) override { m_dVectorHeadScale = dScale; }
    double vectorHeadScale() const override { return m_dVectorHeadScale; }
    void setVectorBodyScale(double dScale) override { m_dVectorBodyScale = dScale; }
    double vectorBodyScale() const override { return m_dVectorBodyScale; }
    void setExtended(bool bExtended) override { m_bExtended = bExtended; }
    bool isExtended() const override { return m_bExtended; }
    void setExtensionMatrix(const QMatrix4x4& matrix) override { m_extensionMatrix = matrix; }
    QMatrix4x4 extensionMatrix() const override { return m_extensionMatrix; }
    bool usesColormap() const override { return m_nScalarVariable != -1 && !m_bGeometricColor; }
    void setColormap(const SColormapRecord& record) override;
    SColormapRecord colormap() const override { return m_colormap; }
    qint32 colormapType() const override { return m_colormap.nId; }
    void setColormapType(qint32 nId) override { m_colormap.nId = nId; }
    void setColormapValues(double dMinimum, double dMaximum) override;
    QPointF colormapRange() const override;
    QPointF scalarRange() const override;
    void saveColormap() override { m_savedColormap = m_colormap; }
    void restoreColormap() override { setColormap(m_savedColormap); }
    void setColormapBindToLocal(bool bBind) override;
    bool colormapBindToLocal() const override { return m_bColormapBindToLocal; }
    CAnnotationColormap* annotationColormap() const override { return m_pLegend.get(); }

    int shaderKey() const override { return m_nShaderKey; }
    QMatrix4x4 modelMatrix() const override { return m_modelMatrix; }
    DVector3D boundsMinimum() const override { return m_boundsMinimum; }
    DVector3D boundsMaximum() const override { return m_boundsMaximum; }
    bool isSelected(bool bRespect) const override;
    bool isHighlighted(bool bRespect) const override;

    void invalidateGeometry() override { m_bGeometryValid = false; }
    void invalidateValues() override { m_bValuesValid = false; }
    void invalidateThresholds() override { m_bThresholdsValid = false; }
    void invalidateVectors() override { m_bVectorsValid = false; }
    void invalidateContours() override { m_bContoursValid = false; }
    void invalidateAll() override;

    SMeshStatistics meshStatistics() const override { return {}; }
    QString description() const override { return {}; }

protected:
    /** Whether the type may be set. */
    virtual bool AllowsDisplayType(DisplayType_e eType) const;
    void ResetBounds();
    void AddToBounds(const DVector3D& point);

    bool m_bGeometryValid = false;
    bool m_bValuesValid = false;
    bool m_bThresholdsValid = false;
    bool m_bVectorsValid = false;
    bool m_bContoursValid = false;
    double m_dTimeCode = -1.0; // level of the data built last
    QMatrix4x4 m_modelMatrix;
    SColormapRecord m_colormap;
    DVector3D m_boundsMinimum;
    DVector3D m_boundsMaximum;

private:
    template <class Drawable, class Visitor> static void VisitFields(Drawable& drawable, Visitor& visit);
    void TakeDisplayType(qint64 nType);
    void WriteExtremes(QJsonObject& display) const;
    bool OwnerShows(bool (ISelectable::*is)() const, bool bRespect) const;

    const qint64 m_nSerial;
    const qint64 m_nSimulationId;
    qint64 m_nViewId;
    const qint64 m_nBlockId;
    const int m_nShaderKey;
    qint64 m_nItemId = -1;
    QVector<ISelectable*> m_owners;

    bool m_bVisible = true;
    bool m_bForceInvisible = false;
    bool m_bNodeVisible = false;
    bool m_bDisplayOnNodes = true;
    bool m_bShowHoles = true;
    DisplayType_e m_eDisplayType = DisplayOutline;
    bool m_bDrawWireframe = false;
    bool m_bDrawShaded = false;
    bool m_bDrawNodes = false;
    bool m_bDrawOutlines = true;
    bool m_bDrawContours = false;
    bool m_bDrawVectors = false;
    qint64 m_nContourCount = 16;
    bool m_bGeometricColor = true;
    QColor m_shadeColor = Qt::gray;
    QColor m_wireframeColor = Qt::green;
    double m_dLineThickness;
    double m_dAlpha = 1.0;
    bool m_bPreview = false;
    qint64 m_nScalarVariable = -1;
    qint64 m_nVectorVariable = -1;
    qint64 m_nThresholdVariable = -1;
    bool m_bThresholdEnable = false;
    QPointF m_thresholdRange = {1.0, 0.0};
    qint64 m_nVectorPlane = 0;
    qint64 m_nVectorSkip = 0;
    double m_dVectorHeadScale = 1.0;
    double m_dVectorBodyScale = 1.0;
    bool m_bExtended = false;
    QMatrix4x4 m_extensionMatrix;
    SColormapRecord m_savedColormap;
    bool m_bColormapBindToLocal = false;
    const std::unique_ptr<CAnnotationColormap> m_pLegend;
};
