#pragma once

#include "simulation/isimulationidentity.h"

#include <QPoint>

#include <set>

class CByteReader;
class CByteWriter;
class CItem;

/**
 * Second link of ISimulation: its items, owned, always sorted by id, then by sub-id. An item is addressed
 * by the two; a sub-id of -1 in a search means the first with the id. -1 is "none" for all ids.
 */
class ISimulationItems : public ISimulationIdentity
{
public:
    using ISimulationIdentity::ISimulationIdentity;
    ~ISimulationItems() override;

    void SetId(qint64 nId) override;
    qint64 GetPointCount() const override;
    qint64 GetCellCount() const override;

    /**
     * The pack, then all items: ids, type, kind and bytes of each.
     * FromBytes makes the items what the stream says: items of the same type and kind are kept as objects
     * and read anew, others are made with CreateItem, those that it doesn't name are deleted. With an id
     * offset or while appending, the stream's items join those that exist and the pack stays.
     */
    QByteArray ToBytes() const override;
    bool FromBytes(const QByteArray& bytes, double dVersion) override;

    /** Added to the ids of a stream that is appended to this case. */
    virtual void SetIdOffset(qint64 nOffset) { m_nIdOffset = nOffset; }
    virtual qint64 GetIdOffset() const { return m_nIdOffset; }
    /** While set, FromBytes adds to the items that exist. */
    virtual void SetAppending(bool bAppending) { m_bAppending = bAppending; }
    virtual bool IsAppending() const { return m_bAppending; }

    // The list.
    /** Above every id that the case has ever given, over undo, save and open too; 1 for the first. */
    virtual qint64 GetNextItemId() const { return m_nLastItemId + 1; }
    /** Notes in the pack, for a file, which ids have been given where the items don't tell it. */
    void StoreLastItemId();
    virtual qint64 GetItemCount() const { return m_items.size(); }
    virtual qint64 FindItemIndex(qint64 nId, qint64 nSubId = -1) const; ///< -1 if not found
    virtual CItem* GetItem(qint64 nId, qint64 nSubId = -1) const;       ///< null if not found
    virtual QVector<CItem*> GetItems(qint64 nType = -1) const;          ///< -1 for all types
    virtual QVector<qint64> GetItemIds(qint64 nType = -1) const;
    /** Those with a grid, structured or not. */
    QVector<CItem*> GetBlocks() const;
    virtual QVector<QPoint> GetItemKeys(qint64 nType = -1) const;                    ///< (sub-id, id) of each
    virtual QVector<CItem*> GetItemsFromSelection(const QVector<qint64>& ids) const; ///< nulls skipped
    /** The first item that a stored identity (CItem::GetIdentity) is of; -1 if none. */
    virtual qint64 FindItemByData(const QByteArray& identity) const;

    // Making and deleting.
    /**
     * Makes an item of the concrete class, with nId -1 under the next id, and inserts it.
     *
     * @param bNew    false while reading a stored case
     * @param nIndex  place in the stream; what a name may be formed with
     * @return null for a type or kind that this simulation doesn't know
     */
    virtual CItem* CreateItem(qint64 nType, qint64 nKind, bool bNew, qint64 nIndex, qint64 nId,
                              qint64 nSubId) = 0;
    /**
     * A copy with all below it, under new ids; the copy of the item itself stands under the same parent
     * (bKeepParent) or under none.
     *
     * @return the new id, -1 if there is no such item
     */
    virtual qint64 DuplicateItem(qint64 nId, bool bKeepParent);
    virtual void DeleteItems(qint64 nType); ///< -1 for all; the views are told once
    /** Deletes the item, drops its id from all others and tells the views. */
    virtual void DeleteItem(qint64 nId, qint64 nSubId = -1);
    virtual void DeleteAllItems() {} ///< concrete simulations empty the list

    // Links between items of equal grid content (simulation_links.cpp).
    /** Ids of the items with this one's link key and type; only this id if its key is empty. */
    virtual QVector<qint64> GetLinkedItems(qint64 nId) const;
    virtual QVector<qint64> GetItemsByLinkKey(qint64 nType, const QByteArray& key) const;
    /** The same by the similar key; bLinkedOnly leaves out items that aren't linked. */
    virtual QVector<qint64> GetSimilarItems(qint64 nId, bool bLinkedOnly) const;
    virtual QVector<qint64> GetItemsBySimilarKey(qint64 nType, const QByteArray& key, bool bLinkedOnly) const;
    /** Links the items; with bUnify the settings of the first go to the others. */
    virtual void MakeLinks(const QVector<qint64>& ids, bool bUnify);
    virtual void BreakLinks(const QVector<qint64>& ids);
    /** In every group of linked items the settings of the first go to the others. */
    virtual void UnifyLinks();
    /** The settings of a linked item go to the other linked ones of its group. */
    virtual void CopyLinkedData(qint64 nId);

    // Several items at once (simulation_common.cpp). Ids without an item are skipped.
    virtual void SetItemNames(const QVector<qint64>& ids, qint64 nIndex, const QString& sName);
    virtual void SetBoolOnItems(const QVector<qint64>& ids, const QString& sKey, bool bValue, bool bDefault);
    virtual void SetIntOnItems(const QVector<qint64>& ids, const QString& sKey, qint64 nValue,
                               qint64 nDefault);
    virtual void SetDoubleOnItems(const QVector<qint64>& ids, const QString& sKey, double dValue,
                                  double dDefault);
    virtual void SetStringOnItems(const QVector<qint64>& ids, const QString& sKey, const QString& sValue,
                                  const QString& sDefault);
    /** The value that all items have; the last argument if they differ, the default without any item. */
    virtual QString GetCommonName(const QVector<qint64>& ids, qint64 nIndex) const; ///< mixed: "-Multiple-"
    virtual QString GetCommonString(const QVector<qint64>& ids, const QString& sKey, const QString& sDefault,
                                    const QString& sMixed) const;
    virtual qint64 GetCommonInt(const QVector<qint64>& ids, const QString& sKey, qint64 nDefault,
                                qint64 nMixed) const;
    virtual double GetCommonDouble(const QVector<qint64>& ids, const QString& sKey, double dDefault,
                                   double dMixed) const;
    /** As Qt::CheckState counts: 0 unset, 1 set, 2 mixed. */
    virtual qint64 GetCommonBool(const QVector<qint64>& ids, const QString& sKey, bool bDefault) const;
    virtual DVector3D GetCommonDVector(const QVector<qint64>& ids, const QString& sKey,
                                       const DVector3D& defaultValue, const DVector3D& mixed) const;

    /** Makes the selectables of an item's children in a view anew. */
    virtual void UpdateChildSelectables(qint64 nId, qint64 nViewId);

    /** The views that show this simulation. */
    QVector<qint64> GetViewIds() const;
    /** The docks of all of them are refreshed. */
    virtual void RefreshViews();

protected:
    using ItemAddress = std::pair<qint64, qint64>; // id, sub-id

    /** Takes the item over and puts it in its place. For CreateItem. */
    CItem* InsertItem(CItem* pItem);
    /** Deletes the items, drops their ids from all others and tells dependants; the views aren't told. */
    void RemoveItems(const std::set<ItemAddress>& keys);
    /** The part of the bytes behind the pack, and what FromBytes says of it. */
    void WriteItems(CByteWriter& writer) const;
    bool ReadItems(CByteReader& reader, double dVersion);

private:
    QVector<CItem*> TakeItems(const std::set<ItemAddress>& keys);
    bool ReadItem(CByteReader& reader, qint64 nIndex, double dVersion, std::set<ItemAddress>& keysRead);
    CItem* ItemForStream(qint64 nType, qint64 nKind, qint64 nIndex, const ItemAddress& address);

    QVector<CItem*> m_items;
    qint64 m_nLastItemId = 0; // the highest that was given; what has it may be gone
    qint64 m_nIdOffset = 0;
    bool m_bAppending = false;
};
