#pragma once

#include "scene/displaynames.h"
#include "scene/pickedpoint.h"

#include <QByteArray>
#include <QJsonObject>
#include <QRunnable>
#include <QVector>

class CAnnotationColormap;
class CGLTree;
class ISelectable;

/** What a drawable has on show. */
struct SMeshStatistics
{
    qint64 nPoints = 0;
    qint64 nLines = 0;
    qint64 nTriangles = 0;
};

/**
 * The graphic side of an item in one view: its display state, and how that becomes geometry and is drawn. A
 * selectable owns one or more of them and hands the user's commands on. Nothing here knows OpenGL; draw and
 * what follows from it need the context of a view to be current. Main thread only.
 *
 * Building is lazy: a setter that changes something marks what has to be built anew (DisplayKeys), one that
 * changes nothing does nothing. A frame calls build for what is visible and reports needsBuild. Empty data is
 * a valid state, an empty drawable draws nothing.
 */
class IDrawable : public QRunnable, public CDisplayNames<IDrawable>
{
public:
    void run() override { build(); }
    virtual void deleteLater() = 0;
    virtual void deleteDisplayLists() = 0;

    virtual bool alwaysRebuild() const = 0;
    virtual bool needsBuild() const = 0;
    /** Fills the arrays that are missing; sets nothing on the GPU. */
    virtual void build() = 0;

    // Stored state.
    virtual QByteArray toBinary() const = 0;
    virtual QJsonObject toJson() const = 0;
    virtual bool fromJson(const QJsonObject& display) = 0;
    virtual bool fromBinary(const QByteArray& bytes, double dVersion) = 0;

    // Identity.
    virtual qint64 serial() const = 0; ///< unique in the process
    virtual void setItemId(qint64 nItemId) = 0;
    virtual qint64 itemId() const = 0;
    virtual void setViewId(qint64 nViewId) = 0;
    virtual qint64 viewId() const = 0;
    virtual qint64 simulationId() const = 0;
    virtual qint64 blockId() const = 0;
    qint64 blockIdEx() const { return -1; } ///< sub-id of the block's item
    virtual QVector<ISelectable*> ownerSelectables() const = 0;

    // Display state. Members without a rule stand in CDisplayNames too.
    const SDisplayState& state() const { return m_state; }
    template <class T> void Change(T SDisplayState::*member, const std::type_identity_t<T>& value)
    {
        if (m_state.*member == value)
            return;
        m_state.*member = value;
        Invalidate(FindDisplayKey(member).nStale);
    }
    template <class T> const T& Value(T SDisplayState::*member) const { return m_state.*member; }

    void setVisible(bool bVisible) { Change(&SDisplayState::bVisible, bVisible); }
    bool isVisible() const { return m_state.bVisible && !m_state.bForceInvisible; }
    void setForceInvisible(bool bInvisible) { Change(&SDisplayState::bForceInvisible, bInvisible); }
    bool forceInvisible() const { return m_state.bForceInvisible; }
    void setPreview(bool bPreview) { Change(&SDisplayState::bPreview, bPreview); }
    bool isPreview() const { return m_state.bPreview; }

    /** Refused for a type that isn't allowed, contours without a scalar and vectors without a vector. */
    void setDisplayType(DisplayType_e eType);
    /** The same without marking anything: for types whose geometry stands already (demotion). */
    void setDisplayTypeQuick(DisplayType_e eType);
    DisplayType_e displayType() const { return DisplayType_e(m_state.nDisplayType); }
    /** Shaded types count as wireframe. */
    DisplayType_e effectiveDisplayType() const;
    void setDrawWireframe(bool bDraw) { Change(&SDisplayState::bDrawWireframe, bDraw); }
    bool drawWireframe() const { return m_state.bDrawWireframe; }
    void setDrawShaded(bool bDraw) { Change(&SDisplayState::bDrawShaded, bDraw); }
    bool drawShaded() const { return m_state.bDrawShaded; }
    void setDrawNodes(bool bDraw) { Change(&SDisplayState::bDrawNodes, bDraw); }
    bool drawNodes() const { return m_state.bDrawNodes; }
    void setDrawOutlines(bool bDraw) { Change(&SDisplayState::bDrawOutlines, bDraw); }
    bool drawOutlines() const { return m_state.bDrawOutlines; }
    /** There is a scalar, and contours are asked for. */
    bool drawContours() const
    {
        return m_state.nScalarVariable != -1 && Draws(&SDisplayState::bDrawContours, DisplayContour);
    }
    bool drawContoursFlag() const { return m_state.bDrawContours; }
    void setDrawVectors(bool bDraw) { Change(&SDisplayState::bDrawVectors, bDraw); }
    /** There is a vector, and vectors are asked for. */
    bool drawVectors() const
    {
        return m_state.nVectorVariable != -1 && Draws(&SDisplayState::bDrawVectors, DisplayVector);
    }
    bool drawVectorsFlag() const { return m_state.bDrawVectors; }
    /** Whether it may be drawn in a simpler way while the view moves. */
    bool canDemote() const { return true; }

    /** The scalar that has to be built: -1 while it doesn't show. */
    qint64 effectiveScalarVariable() const;
    /** Asks for vectors to be shown, unless it is -1. */
    void setVectorVariable(qint64 nId);
    void setExtensionMatrix(const QMatrix4x4& matrix) { m_state.extensionMatrix = matrix; }
    QMatrix4x4 extensionMatrix() const { return m_state.extensionMatrix; }

    /** There is a scalar, and the colour isn't the constant one. */
    bool usesColormap() const { return m_state.nScalarVariable != -1 && !m_state.bGeometricColor; }
    void setColormap(const SColormapRecord& record);
    const SColormapRecord& colormap() const { return m_state.colormap; }
    qint32 colormapType() const { return m_state.colormap.nId; } ///< its id
    void setColormapType(qint32 nId) { m_state.colormap.nId = nId; }
    /**
     * The range in use, its ends moved apart where they are equal. A minimum above the maximum turns the
     * colours round, and they stay so: the next range may come either way.
     */
    void setColormapValues(double dMinimum, double dMaximum);
    /** The range that it is drawn with: the local one where that is bound and set. */
    QPointF colormapRange() const;
    /** Least and greatest value of the scalar over this drawable; x > y without any. */
    QPointF scalarRange() const { return {m_state.colormap.dLocalMinimum, m_state.colormap.dLocalMaximum}; }
    void saveColormap() { m_savedColormap = m_state.colormap; }
    /** Back to what saveColormap kept. */
    void restoreColormap() { setColormap(m_savedColormap); }
    /** The legend; owned by the drawable. */
    virtual CAnnotationColormap* annotationColormap() const = 0;

    // Drawing.
    /**
     * Brings what was built to the GPU, with the view's context current. draw does so too, but in the middle
     * of drawing it costs several times as much.
     */
    virtual void upload() = 0;
    /** @param bOverlay  the pass of what is selected or highlighted, in front of all else */
    virtual void draw(bool bOverlay) = 0;
    virtual int shaderKey() const = 0; ///< 1 vectors, 2 surfaces
    virtual QMatrix4x4 modelMatrix() const = 0;
    /** Widens the two by the vertices on show, in the coordinates of the view matrix. */
    virtual void addBounds(DVector3D& minimum, DVector3D& maximum, const QMatrix4x4& view) const = 0;
    /** Box of what was built; minimum above maximum while there is nothing. */
    virtual DVector3D boundsMinimum() const = 0;
    virtual DVector3D boundsMaximum() const = 0;
    /** How far what is drawn reaches out of that box, as arrows do [units of the box]. */
    virtual double reachOutOfBounds() const { return 0.0; }

    // What has to be built anew.
    void Invalidate(unsigned nStale) { m_nStale |= nStale; } ///< of Stale
    void invalidateGeometry() { Invalidate(Stale::GEOMETRY); }
    void invalidateValues() { Invalidate(Stale::VALUES); }
    void invalidateThresholds() { Invalidate(Stale::THRESHOLDS); }
    void invalidateVectors() { Invalidate(Stale::VECTORS); }
    void invalidateContours() { Invalidate(Stale::CONTOURS); }
    void invalidateAll() { Invalidate(Stale::ALL); }

    // Selection. @param bRespect  an analysed case may forbid that its selection shows
    virtual bool isSelected(bool bRespect) const = 0;
    virtual bool isHighlighted(bool bRespect) const = 0;

    // Points.
    /** Where the scalar is least and greatest; without a scalar both have no point. */
    virtual SPickedPoint minimumRecord() const = 0;
    virtual SPickedPoint maximumRecord() const = 0;
    /** Adds value, texts and item to a point that was picked by its place. */
    virtual void pointInformation(SPickedPoint& point) const = 0;
    /** The tree of all that can be picked, built at its first use after the geometry has changed. */
    virtual CGLTree& pickTree() = 0;
    virtual bool hasPickTree() const = 0; ///< it is there; else asking for it builds it
    /**
     * All that is known of a corner of a pick item: place, index, value, texts, item.
     *
     * @param nPosition  place in the array of positions that the tree stands over
     * @return without a point where there is no such place
     */
    virtual SPickedPoint pickedPoint(qint64) const { return {}; }

    virtual SMeshStatistics meshStatistics() const = 0;
    virtual QString description() const = 0;

protected:
    /** Whether the type may be set. */
    virtual bool AllowsDisplayType(DisplayType_e eType) const;
    bool IsStale(unsigned nStale) const { return (m_nStale & nStale) != 0; }
    void SetBuilt(unsigned nStale) { m_nStale &= ~nStale; }

    SDisplayState m_state;

private:
    bool Draws(bool SDisplayState::*flag, DisplayType_e eType) const
    {
        return m_state.*flag || m_state.nDisplayType == eType;
    }

    unsigned m_nStale = Stale::ALL;
    SColormapRecord m_savedColormap;
};
