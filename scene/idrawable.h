#pragma once

#include "scene/idrawablestate.h"
#include "scene/pickedpoint.h"

#include <QByteArray>
#include <QJsonObject>
#include <QVector>

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
 * The graphic side of an item in one view: its display state (IDrawableState), and how that becomes geometry
 * and is drawn. A selectable owns one or more of them and hands the user's commands on. Nothing here knows
 * OpenGL; draw and what follows from it need the context of a view to be current. Main thread only.
 *
 * Building is lazy: a frame calls build for what is visible and reports needsBuild. Empty data is a valid
 * state, an empty drawable draws nothing.
 */
class IDrawable : public IDrawableState
{
public:
    /** Calls build. */
    void run() override = 0;
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
    virtual qint64 blockIdEx() const = 0; ///< sub-id of the block's item
    virtual QVector<ISelectable*> ownerSelectables() const = 0;

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
    virtual void invalidateGeometry() = 0;
    virtual void invalidateValues() = 0;
    virtual void invalidateThresholds() = 0;
    virtual void invalidateVectors() = 0;
    virtual void invalidateContours() = 0;
    virtual void invalidateAll() = 0;

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
};
