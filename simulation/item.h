#pragma once

#include "frame/packs/datapack.h"
#include "frame/transform.h"
#include "scene/selectablekind.h"

#include <QJsonObject>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

class ISelectable;
class ISimulationItems;

/** What of an item has a selectable of its own: a boundary of a block, an envelope of a zone. */
struct SItemPart
{
    SelectableKind_e eKind;
    qint64 nPartId; ///< among those of the item; -1: the whole item
    QString sName;
};

/**
 * A node of a case: a block, zone, body, phantom, boundary or log. Items form a tree by id inside the flat
 * list of their simulation, which owns them. An item is addressed by its id and sub-id; -1 is "none".
 * Its settings are the keys of its pack (simulation/itemkeys.h names those of every item).
 *
 * The operations of the tree need a simulation; on an item outside of one they show "Item is not inside
 * any simulation" and change nothing. Main thread only.
 */
class CItem : public CDataPack
{
public:
    CItem() = default;
    CItem(const CItem&) = delete;
    CItem& operator=(const CItem&) = delete;
    /** Takes the item's selectables out of their manager. */
    ~CItem() override;

    QByteArray ToBytes() const override;
    bool FromBytes(const QByteArray& bytes, double dVersion) override;

    // What derived classes tell and do.
    virtual bool OnAttached() { return false; } ///< the item has been read into its simulation
    virtual QByteArray GetExportData() const { return {}; }
    virtual void OnGridChanged() {}
    virtual QByteArray GetRestartData() const { return {}; }
    virtual bool Validate() const { return true; }
    virtual QJsonObject ToJson() const { return {}; }
    virtual bool FromJson(const QJsonObject&) { return true; }
    virtual void OnSizeChanged() {}
    virtual void ConvertAxis(int) {}
    virtual void OnDependedDeleted() {} ///< an item that this one depends on is gone
    virtual bool IsTimeDependent() const { return false; }
    virtual QString GetTypeName() const { return {}; }
    virtual QStringList GetFileList() const { return {}; }
    virtual qint64 GetFileCount() const { return 0; }
    virtual QVector<qint64> GetExtraIds() const { return {}; }
    virtual QStringList GetExtraKeys() const { return {}; }
    virtual bool IsVisibleInPanel() const { return true; }
    /** As what it is shown, whatever the number of its type. */
    virtual SelectableKind_e GetShownKind() const { return SelectableKind_e(m_nType); }
    /** Beside the whole item. */
    virtual QVector<SItemPart> GetParts() const { return {}; }
    /** Each id of another item that it keeps goes through the map; one that becomes -1 is dropped. */
    virtual void MapIds(const std::function<qint64(qint64)>& map);
    virtual qint64 GetPointCount() const { return 0; }
    virtual qint64 GetCellCount() const { return 0; }

    // Identity.
    void SetSimulationId(qint64 nId) { m_nSimulationId = nId; }
    qint64 GetSimulationId() const { return m_nSimulationId; }
    void SetId(qint64 nId) { m_nId = nId; }
    qint64 GetId() const { return m_nId; }
    void SetSubId(qint64 nSubId) { m_nSubId = nSubId; }
    qint64 GetSubId() const { return m_nSubId; }
    void SetType(qint64 nType) { m_nType = nType; }
    qint64 GetType() const { return m_nType; }
    void SetKind(qint64 nKind) { m_nKind = nKind; }
    qint64 GetKind() const { return m_nKind; }
    void SetDisplayFlag(qint64 nFlag) { m_nDisplayFlag = nFlag; }
    qint64 GetDisplayFlag() const { return m_nDisplayFlag; }
    /** The list of items that holds this one; null outside of a simulation. Set by that list alone. */
    void SetSimulation(ISimulationItems* pSimulation) { m_pSimulation = pSimulation; }
    ISimulationItems* GetSimulation() const { return m_pSimulation; }

    // Names: the item's own at index 0, then further parts.
    void SetName(const QString& sName, qint64 nIndex); ///< grows the list with "" as needed
    QString GetName(qint64 nIndex = 0) const;          ///< "" out of range
    void SetNameCount(qint64 nCount) { m_nNameCount = nCount; }
    qint64 GetNameCount() const { return m_nNameCount; }
    /** The name, then " @ %1" for each further one up to the name count, ending at the first empty one. */
    QString GetDisplayName() const;

    // Links between items with the same grid.
    void SetLinked(bool bLinked);
    bool IsLinked() const;
    /** What items of equal grid content share; empty where there is no grid. */
    virtual QByteArray GetLinkKey() const { return {}; }
    /** The same of an item with all below it: a hash of their link keys; empty without any. Cached. */
    virtual QByteArray GetSimilarKey() const;
    /** Forgets both keys, after the grid or the children have changed. */
    void ClearKeys() const;
    /** Id, type and link key as bytes, by which a stored state finds its item again. */
    QByteArray GetIdentity() const;
    /** @param nIdOffset  added to the stored id, for a state that was appended to another case */
    bool MatchesIdentity(const QByteArray& identity, qint64 nIdOffset = 0) const;
    /** Takes over all settings of another item; the bookkeeping, links and placement stay its own. */
    virtual void CopyDataFrom(const CItem& other);

    // Bookkeeping in the pack.
    void SetSimulationClosing(bool bClosing);
    bool IsSimulationClosing() const;
    void SetContainer(bool bContainer);
    bool IsContainer() const;
    void SetDescription(const QString& sDescription); ///< shown by the item panel at once
    QString GetDescription() const;
    void SetGridType(qint64 nType);
    qint64 GetGridType() const;
    void SetCellPointTolerance(double dTolerance);
    double GetCellPointTolerance() const;

    // The grid.
    const IVector3D& GetSize() const { return m_size; } ///< point counts of the item's grid
    void SetSize(const IVector3D& size);
    void SetIndexA(qint32 nIndex) { m_nIndexA = nIndex; }
    qint32 GetIndexA() const { return m_nIndexA; }
    void SetIndexB(qint32 nIndex) { m_nIndexB = nIndex; }
    qint32 GetIndexB() const { return m_nIndexB; }
    STransform GetTransform() const;
    void SetTransform(const STransform& transform);
    /** Sets (or, with bCombine, applies on top) the transform of the item and of all below it. */
    void SetTransformRecursive(const STransform& transform, bool bCombine);
    IVector3D GetConvert() const;
    /** With bApply every axis whose entry is 1 is converted at once. */
    void SetConvert(const IVector3D& axes, bool bApply);

    // The item in the views (item_selectables.cpp).
    /** -1 gives the whole item, without a name; nothing for a part that it doesn't have. */
    std::optional<SItemPart> FindPart(qint64 nPartId) const;
    ISelectable* GetSelectable(qint64 nViewId, qint64 nPartId = -1) const;
    /** That of the item, or of one part, alone; null for a part that it doesn't have. */
    ISelectable* MakeSelectable(qint64 nViewId, qint64 nPartId = -1);
    void SelectInView(qint64 nViewId);
    /** Makes the selectables of the item, of its parts and of all below where they are missing; -1: in each
     * view. */
    void CreateSelectable(qint64 nViewId);
    void DeleteSelectable(qint64 nViewId);
    void OnParentChanged(CItem* pOld);
    void UpdateSelectableParent(qint64 nViewId);
    /** Whoever shows the item reads it again; -1: in each view. */
    void RefreshSelectable(qint64 nViewId);

    // The tree (item_tree.cpp).
    qint64 GetParentId() const;
    /** @param bUpdateParent  also takes the id out of the old parent's children and adds it to the new one's
     */
    void SetParentId(qint64 nParentId, bool bUpdateParent);
    void RemoveFromParent();
    /** Ids in order, of one type (-1: all); bRecursive: this item first, then all below, depth first. */
    QVector<qint64> GetChildIds(qint64 nType = -1, bool bRecursive = false) const;
    /** Adds an id once. @param bSilent  the views aren't told */
    void AddChild(qint64 nChildId, bool bSilent = false);
    void RemoveChild(qint64 nChildId);
    void ClearChildren(bool bSilent = false);
    QVector<qint64> GetDependedItems() const;
    void AddDependedItem(qint64 nId); ///< adds an id once
    void RemoveDependedItem(qint64 nId);
    /** Deletes the items of one type (-1: all) that depend on this one. */
    void DeleteDependents(qint64 nType = -1);
    /** Drops the id, or any of the ids, from children, dependants and parent. */
    void ForgetItem(qint64 nId) { ForgetItems({nId}); }
    void ForgetItems(const QSet<qint64>& ids);
    /** Adds nDelta to the own id and to all ids of the tree: the item joins another case. */
    void ShiftIds(qint64 nDelta);

private:
    CItem* FindItem(qint64 nId) const;
    bool TellIfOutside() const;
    void CollectIds(qint64 nType, QVector<qint64>& ids, QSet<qint64>& visited) const;
    QVector<qint64> ViewsOf(qint64 nViewId) const;

    ISimulationItems* m_pSimulation = nullptr;
    qint64 m_nSimulationId = -1;
    qint64 m_nId = -1;
    qint64 m_nSubId = 0;
    qint64 m_nType = -1; // meaning set by the module
    qint64 m_nKind = -1; // second level of the type, set by the module
    qint64 m_nDisplayFlag = 0;
    QStringList m_sNameList;
    qint64 m_nNameCount = 1;
    IVector3D m_size;
    qint32 m_nIndexA = -1;
    qint32 m_nIndexB = -1;
    mutable QByteArray m_similarKey; // cache; empty: not formed yet
};
