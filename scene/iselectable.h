#pragma once

#include "data/values/valuerange.h"
#include "frame/packs/datapack.h"
#include "scene/drawablegroup.h"
#include "scene/selectablekind.h"

#include <QObject>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

/**
 * Anything the user can see in the item panel and pick in a view. A selectable stands for one item in one
 * pair of view and simulation; CSelectableManager owns it. The display commands of the user go to its
 * drawables (CDrawableGroup). Its pack holds the properties of its kind (scene/selectablekeys.h). Main thread
 * only.
 */
class ISelectable : public QObject, public CDataPack, public CDrawableGroup
{
    Q_OBJECT

public:
    ISelectable() = default;
    ~ISelectable() override;

    // Identity.
    virtual qint64 simulationId() const = 0;
    virtual qint64 viewId() const = 0;
    virtual qint64 itemId() const = 0;
    /** Which part of the item it stands for; -1: the whole. */
    virtual qint64 partId() const { return -1; }
    /** A SelectableKind_e: names the class in stored data and the group in the item panel. */
    virtual qint64 typeId() const = 0;
    /** Id of the block's item that the drawables show; -1 for none. */
    virtual qint64 blockId() const { return -1; }
    /** What the item panel shows. */
    virtual QString name() const = 0;

    // Stored state.
    /** The display state: kind, own state, then that of each drawable. */
    virtual QByteArray toBinary() const { return {}; }
    /** False for bytes of another kind and for bytes that end early; what has been read by then stays. */
    virtual bool fromBinary(const QByteArray&, double) { return false; }
    virtual QJsonObject toJsonBlock() const { return {}; }
    virtual bool fromJsonBlock(const QJsonObject&) { return false; }

    // The tree.
    virtual qint64 childCount() const = 0;
    virtual void addChild(ISelectable* pChild) = 0;
    virtual void removeChild(ISelectable* pChild) = 0;
    /** @param bHard  the parent owns this one and takes it along when it goes */
    virtual void addParent(ISelectable* pParent, bool bHard) = 0;
    virtual void removeParent(ISelectable* pParent) = 0;
    virtual bool isDescendantOf(const ISelectable*) const { return false; }

    // Events of the view while this is the hovered one; true ends the event.
    virtual bool isEnabledForEvents() const { return false; }
    virtual bool handleMousePress(QMouseEvent*) { return false; }
    virtual bool handleMouseMove(QMouseEvent*) { return false; }
    virtual bool handleMouseRelease(QMouseEvent*) { return false; }
    virtual bool handleMouseDoubleClick(QMouseEvent*) { return false; }
    virtual bool handleWheel(QWheelEvent*) { return false; }
    virtual bool handleKeyPress(QKeyEvent*) { return false; }
    virtual bool handleKeyRelease(QKeyEvent*) { return false; }

    // State.
    virtual void setHover(bool bHover) = 0;
    virtual bool isHover() const = 0;
    virtual void setSelected(bool bSelected) = 0;
    virtual bool isSelected() const = 0;
    virtual void setVisible(bool bVisible) = 0;
    virtual bool isVisible() const = 0;

    // Analysis. Each "can" holds where the kind offers it and the case has the data for it.
    /** Least and greatest value of a variable over the item at the time on show; empty without data. */
    virtual SValueRange rangeOfVariable(qint64) const { return {}; }
    virtual bool CanCalculatePlaneIntersection() const { return false; }
    virtual bool CanCalculateISOSurface() const { return false; }
    virtual bool CanCalculateScalarExtreme() const { return false; }
    virtual bool CanIntegrateScalar() const { return false; }
    virtual bool CanIntegrateForce() const { return false; }

    /** 1: drawn as a line (the item's grid is two-dimensional), 2: as a surface. */
    virtual void setDimension(int nDimension) = 0;
};
