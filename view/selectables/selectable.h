#pragma once

#include "data/values/blockshape.h"
#include "frame/packs/packkey.h"
#include "frame/packs/unknownmembers.h"
#include "scene/iselectable.h"

class CByteReader;
class CByteWriter;
class CDrawable;
class CItem;

/**
 * What all selectables of the program have in common: the tree, the state, the drawables, which it owns, and
 * the stored forms. A relation between a parent and a child always stands on both sides. A parent takes the
 * children that it owns (addParent with bHard) along when it goes; all others only lose the link.
 */
class CSelectable : public ISelectable
{
    Q_OBJECT

public:
    /** Has the properties of its kind (view/selectables/kinds.h). */
    CSelectable(const CItem& item, qint64 nViewId, SelectableKind_e eKind, qint64 nPartId = -1);
    ~CSelectable() override;

    // Identity.
    qint64 simulationId() const override { return m_nSimulationId; }
    qint64 viewId() const override { return m_nViewId; }
    qint64 itemId() const override { return m_nItemId; }
    qint64 partId() const override { return m_nPartId; }
    qint64 typeId() const override { return m_nTypeId; }
    qint64 blockId() const override { return m_nBlockId; }
    /** Ids of all blocks that it lies in. */
    const QVector<qint64>& blockIds() const { return m_blockIds; }
    QString name() const override;

    // Stored state (selectable_store.cpp). Members that this version doesn't know are kept, in both forms.
    QByteArray toBinary() const override;
    bool fromBinary(const QByteArray& bytes, double dVersion) override;
    /** "kind", "hidden", "selected" and "drawables", the display of each; derived kinds add to it. */
    QJsonObject toJsonBlock() const override;
    /** False for a block of another kind; what it doesn't name stays. */
    bool fromJsonBlock(const QJsonObject& block) override;

    // The tree.
    qint64 childCount() const override { return m_children.size(); }
    const QVector<ISelectable*>& children() const { return m_children; }
    void addChild(ISelectable* pChild) override;
    void removeChild(ISelectable* pChild) override;
    void addParent(ISelectable* pParent, bool bHard) override;
    void removeParent(ISelectable* pParent) override;
    bool isDescendantOf(const ISelectable* pAncestor) const override;

    // State.
    bool isEnabledForEvents() const override { return m_bEnabledForEvents; }
    void setEnabledForEvents(bool bEnabled) { m_bEnabledForEvents = bEnabled; }
    void setHover(bool bHover) override { m_bHover = bHover; }
    bool isHover() const override { return m_bHover; }
    void setSelected(bool bSelected) override { m_bSelected = bSelected; }
    bool isSelected() const override { return m_bSelected; }
    void setVisible(bool bVisible) override;
    /** That of the drawables; without any, what was set last. */
    bool isVisible() const override;
    void setDimension(int nDimension) override { m_nDimension = nDimension; }
    int dimension() const { return m_nDimension; }

    // Analysis.
    SValueRange rangeOfVariable(qint64 nVariableId) const override;
    bool CanCalculatePlaneIntersection() const override;
    bool CanCalculateISOSurface() const override;
    bool CanCalculateScalarExtreme() const override;
    bool CanIntegrateScalar() const override;
    bool CanIntegrateForce() const override;

protected:
    /** Takes the drawable over, behind those that are there, as one of this item. */
    void AddDrawable(CDrawable* pDrawable);
    void RemoveLastDrawable();
    void SetBlocks(const QVector<qint64>& blockIds);
    /** The item that this one stands for; null once it is gone. */
    CItem* FindItem() const;
    CItem* FindBlock() const;

    /** What a kind keeps beside its drawables. False on bytes that end early. */
    virtual void WriteOwnState(CByteWriter&) const {}
    virtual bool ReadOwnState(CByteReader&) { return true; }
    /** A stored state of so many drawables is about to be read: a kind may make as many. */
    virtual void PrepareDrawables(qint64 /*nCount*/) {}
    // The stored forms of drawable n, with what the kind keeps of it.
    virtual void WriteDrawable(int n, CByteWriter& writer) const = 0;
    virtual bool ReadDrawable(int n, const QByteArray& bytes, double dVersion) = 0;
    virtual QJsonObject DrawableToJson(int n) const = 0;
    virtual void DrawableFromJson(int n, const QJsonObject& display) = 0;
    /** The nodes of a block that belong to the item; what the block doesn't have is left out. */
    virtual SIJKRange NodesInBlock(const SBlockShape& nodes) const { return nodes.Range(); }

private:
    bool Offers(const SKey<bool>& key, bool bNeedsValues) const;

    QVector<ISelectable*> m_children;
    QVector<ISelectable*> m_parents;
    QVector<ISelectable*> m_hardParents; // those of m_parents that own it
    const qint64 m_nSimulationId;
    const qint64 m_nViewId;
    const qint64 m_nItemId;
    const qint64 m_nTypeId;
    const qint64 m_nPartId;
    qint64 m_nBlockId = -1;
    QVector<qint64> m_blockIds;
    bool m_bEnabledForEvents = false;
    bool m_bHover = false;
    bool m_bSelected = false;
    bool m_bHidden = false;
    int m_nDimension = 2;
    CUnknownMembers m_unknown; // of the JSON block
};
