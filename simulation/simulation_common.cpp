// ISimulationItems: one setting of several items.
#include "simulation/isimulationitems.h"
#include "simulation/item.h"

namespace {

/** The value that read() gives for every item; mixed if they differ, absent without any. */
template <class T, class Read>
T Common(const QVector<CItem*>& items, const T& absent, const T& mixed, Read read)
{
    if (items.isEmpty())
        return absent;
    const T first = read(*items.first());
    for (const CItem* const pItem : items)
        if (!(read(*pItem) == first))
            return mixed;
    return first;
}

} // namespace

void ISimulationItems::SetItemNames(const QVector<qint64>& ids, qint64 nIndex, const QString& sName)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetName(sName, nIndex);
}

void ISimulationItems::SetBoolOnItems(const QVector<qint64>& ids, const QString& sKey, bool bValue,
                                      bool bDefault)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetBool(sKey, bValue, bDefault);
}

void ISimulationItems::SetIntOnItems(const QVector<qint64>& ids, const QString& sKey, qint64 nValue,
                                     qint64 nDefault)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetInt(sKey, nValue, nDefault);
}

void ISimulationItems::SetDoubleOnItems(const QVector<qint64>& ids, const QString& sKey, double dValue,
                                        double dDefault)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetDouble(sKey, dValue, dDefault);
}

void ISimulationItems::SetStringOnItems(const QVector<qint64>& ids, const QString& sKey,
                                        const QString& sValue, const QString& sDefault)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetString(sKey, sValue, sDefault);
}

QString ISimulationItems::GetCommonName(const QVector<qint64>& ids, qint64 nIndex) const
{
    return Common(GetItemsFromSelection(ids), QString(), QString("-Multiple-"),
                  [&](const CItem& item) { return item.GetName(nIndex); });
}

QString ISimulationItems::GetCommonString(const QVector<qint64>& ids, const QString& sKey,
                                          const QString& sDefault, const QString& sMixed) const
{
    return Common(GetItemsFromSelection(ids), sDefault, sMixed,
                  [&](const CItem& item) { return item.GetString(sKey, sDefault); });
}

qint64 ISimulationItems::GetCommonInt(const QVector<qint64>& ids, const QString& sKey, qint64 nDefault,
                                      qint64 nMixed) const
{
    return Common(GetItemsFromSelection(ids), nDefault, nMixed,
                  [&](const CItem& item) { return item.GetInt(sKey, nDefault); });
}

double ISimulationItems::GetCommonDouble(const QVector<qint64>& ids, const QString& sKey, double dDefault,
                                         double dMixed) const
{
    return Common(GetItemsFromSelection(ids), dDefault, dMixed,
                  [&](const CItem& item) { return item.GetDouble(sKey, dDefault); });
}

qint64 ISimulationItems::GetCommonBool(const QVector<qint64>& ids, const QString& sKey, bool bDefault) const
{
    constexpr qint64 MIXED = 2;
    return Common(GetItemsFromSelection(ids), qint64(bDefault), MIXED,
                  [&](const CItem& item) { return qint64(item.GetBool(sKey, bDefault)); });
}

DVector3D ISimulationItems::GetCommonDVector(const QVector<qint64>& ids, const QString& sKey,
                                             const DVector3D& defaultValue, const DVector3D& mixed) const
{
    return Common(GetItemsFromSelection(ids), defaultValue, mixed,
                  [&](const CItem& item) { return item.GetDVector(sKey, defaultValue); });
}
