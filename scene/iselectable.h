#pragma once

#include "frame/datapack.h"

#include <QObject>

/**
 * Anything the user can see in the item panel and pick in a view. A selectable stands for one item in one
 * pair of view and simulation; CSelectableManager owns it. Its pack holds the properties of its kind
 * (scene/selectablekeys.h). Main thread only.
 */
class ISelectable : public QObject, public CDataPack
{
    Q_OBJECT

public:
    ISelectable() = default;
    ~ISelectable() override;

    virtual qint64 simulationId() const = 0;
    virtual qint64 viewId() const = 0;
    virtual qint64 itemId() const = 0;
    /** Names the class in stored data. */
    virtual qint64 typeId() const = 0;
    /** What the item panel shows. */
    virtual QString name() const = 0;

    virtual qint64 childCount() const = 0;
    virtual void addChild(ISelectable* pChild) = 0;
    virtual void removeChild(ISelectable* pChild) = 0;
    /** @param bHard  the parent owns this one and takes it along when it goes */
    virtual void addParent(ISelectable* pParent, bool bHard) = 0;
    virtual void removeParent(ISelectable* pParent) = 0;

    virtual void setHover(bool bHover) = 0;
    virtual bool isHover() const = 0;
    virtual void setSelected(bool bSelected) = 0;
    virtual bool isSelected() const = 0;

    virtual void setVisible(bool bVisible) = 0;
    virtual bool isVisible() const = 0;

    /** 1: drawn as a line (the item's grid is two-dimensional), 2: as a surface. */
    virtual void setDimension(int nDimension) = 0;
};
