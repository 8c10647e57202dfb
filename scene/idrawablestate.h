#pragma once

#include "frame/vector3d.h"
#include "scene/colormaprecord.h"
#include "scene/displaytype.h"

#include <QColor>
#include <QMatrix4x4>
#include <QPointF>
#include <QRunnable>

class CAnnotationColormap;

/**
 * The display state of a drawable: what of it is shown and how. A setter that changes nothing does nothing;
 * one that changes something marks what has to be built anew, which the next frame does. Main thread only.
 */
class IDrawableState : public QRunnable
{
public:
    // Visibility.
    virtual void setVisible(bool bVisible) = 0;
    virtual bool isVisible() const = 0; ///< visible and not hidden by force
    /** Hides it whatever setVisible says. */
    virtual void setForceInvisible(bool bInvisible) = 0;
    virtual bool forceInvisible() const = 0;
    /** Nodes are drawn as well. */
    virtual void setNodeVisible(bool bVisible) = 0;
    virtual bool nodeVisible() const = 0;
    /** Scalars at nodes, else at cell centres. */
    virtual void setDisplayOnNodes(bool bOnNodes) = 0;
    virtual bool displayOnNodes() const = 0;
    /** Blanked cells are left out, so that the holes show; off draws and picks them like any cell. */
    virtual void setShowHoles(bool bShow) = 0;
    virtual bool showHoles() const = 0;

    // What is drawn.
    /** Refused for a type that isn't allowed, contours without a scalar and vectors without a vector. */
    virtual void setDisplayType(DisplayType_e eType) = 0;
    /** The same without marking anything: for types whose geometry stands already (demotion). */
    virtual void setDisplayTypeQuick(DisplayType_e eType) = 0;
    virtual DisplayType_e displayType() const = 0;
    /** Shaded types count as wireframe. */
    virtual DisplayType_e effectiveDisplayType() const = 0;
    virtual void setDrawWireframe(bool bDraw) = 0;
    virtual bool drawWireframe() const = 0;
    virtual void setDrawShaded(bool bDraw) = 0;
    virtual bool drawShaded() const = 0;
    virtual void setDrawNodes(bool bDraw) = 0;
    virtual bool drawNodes() const = 0;
    virtual void setDrawOutlines(bool bDraw) = 0;
    virtual bool drawOutlines() const = 0;
    virtual void setDrawContours(bool bDraw) = 0;
    /** There is a scalar, and contours are asked for. */
    virtual bool drawContours() const = 0;
    virtual bool drawContoursFlag() const = 0;
    virtual void setDrawVectors(bool bDraw) = 0;
    /** There is a vector, and vectors are asked for. */
    virtual bool drawVectors() const = 0;
    virtual bool drawVectorsFlag() const = 0;
    /** Whether it may be drawn in a simpler way while the view moves. */
    virtual bool canDemote() const = 0;
    virtual void setContourCount(qint64 nCount) = 0;
    virtual qint64 contourCount() const = 0;

    // Colours.
    /** The constant colour instead of the colormap. */
    virtual void setGeometricColor(bool bGeometric) = 0;
    virtual bool geometricColor() const = 0;
    virtual void setShadeColor(const QColor& color) = 0;
    virtual QColor shadeColor() const = 0;
    virtual void setWireframeColor(const QColor& color) = 0;
    virtual QColor wireframeColor() const = 0;
    virtual void setLineThickness(double dPixels) = 0;
    virtual double lineThickness() const = 0;
    /** Of the shaded part: 0 invisible, 1 opaque. */
    virtual void setAlphaValue(double dAlpha) = 0;
    virtual double alphaValue() const = 0;
    /** Drawn in the preview colour, and not selectable. */
    virtual void setPreview(bool bPreview) = 0;
    virtual bool isPreview() const = 0;

    // Variables, by id; -1 for none.
    virtual void setScalarVariable(qint64 nId) = 0;
    virtual qint64 scalarVariable() const = 0;
    /** The scalar that has to be built: -1 while it doesn't show. */
    virtual qint64 effectiveScalarVariable() const = 0;
    virtual void setVectorVariable(qint64 nId) = 0;
    virtual qint64 vectorVariable() const = 0;
    virtual void setThresholdVariable(qint64 nId) = 0;
    virtual qint64 thresholdVariable() const = 0;
    virtual void setThresholdEnable(bool bEnable) = 0;
    virtual bool thresholdEnable() const = 0;
    /** x: least, y: greatest value that is drawn. */
    virtual void setThresholdRange(const QPointF& range) = 0;
    virtual QPointF thresholdRange() const = 0;

    // Vectors.
    /** Projection: 0 none, 1 XY, 2 XZ, 3 YZ, 4 surface. */
    virtual void setVectorPlane(qint64 nPlane) = 0;
    virtual qint64 vectorPlane() const = 0;
    /** Every (n + 1)-th vector in each direction is drawn. */
    virtual void setVectorSkip(qint64 nSkip) = 0;
    virtual qint64 vectorSkip() const = 0;
    virtual void setVectorHeadScale(double dScale) = 0;
    virtual double vectorHeadScale() const = 0;
    virtual void setVectorBodyScale(double dScale) = 0;
    virtual double vectorBodyScale() const = 0;

    // A second copy, drawn with a matrix of its own.
    virtual void setExtended(bool bExtended) = 0;
    virtual bool isExtended() const = 0;
    virtual void setExtensionMatrix(const QMatrix4x4& matrix) = 0;
    virtual QMatrix4x4 extensionMatrix() const = 0;

    // The colormap.
    /** There is a scalar, and the colour isn't the constant one. */
    virtual bool usesColormap() const = 0;
    virtual void setColormap(const SColormapRecord& record) = 0;
    virtual SColormapRecord colormap() const = 0;
    virtual qint32 colormapType() const = 0; ///< its id
    virtual void setColormapType(qint32 nId) = 0;
    /**
     * The range in use, its ends moved apart where they are equal. A minimum above the maximum turns the
     * colours round, and they stay so: the next range may come either way.
     */
    virtual void setColormapValues(double dMinimum, double dMaximum) = 0;
    /** The range that it is drawn with: the local one where that is bound and set. */
    virtual QPointF colormapRange() const = 0;
    /** Least and greatest value of the scalar over this drawable; x > y without any. */
    virtual QPointF scalarRange() const = 0;
    virtual void saveColormap() = 0;
    /** Back to what saveColormap kept. */
    virtual void restoreColormap() = 0;
    virtual void setColormapBindToLocal(bool bBind) = 0;
    virtual bool colormapBindToLocal() const = 0;
    /** The legend; owned by the drawable. */
    virtual CAnnotationColormap* annotationColormap() const = 0;
};
