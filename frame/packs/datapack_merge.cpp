// How the changes between two packs come into a third one.
#include "frame/packs/datapack_tables.h"

#include <utility>

namespace {

/** All of the first, then what the second has beyond it. */
QStringList United(const QStringList& sFirstList, const QStringList& sSecondList)
{
    QStringList sList = sFirstList;
    for (const QString& sEntry : sSecondList)
        if (!sFirstList.contains(sEntry))
            sList.append(sEntry);
    return sList;
}

} // namespace

template <class T> void CDataPack::STable<T>::Merge(const STable& base, const STable& changed)
{
    for (const QString& sKey : United(base.keys, changed.keys)) {
        const int nBase = base.IndexOf(sKey);
        const int nChanged = changed.IndexOf(sKey);
        if (nChanged < 0)
            Remove(sKey);
        else if (nBase < 0 || !PackTableDetail::AreEqual(base.values[nBase], changed.values[nChanged]))
            Store(sKey, changed.values[nChanged]);
    }
}

void CDataPack::MergeChanges(const CDataPack& base, const CDataPack& changed)
{
    m_bytes.clear();
    const auto mergeTables = [&]<size_t... nTables>(std::index_sequence<nTables...>)
    {
        (std::get<nTables>(m_tables).Merge(std::get<nTables>(base.m_tables),
                                           std::get<nTables>(changed.m_tables)),
         ...);
    };
    mergeTables(std::make_index_sequence<std::tuple_size_v<Tables>>());
    for (const QString& sName : United(base.m_childNames, changed.m_childNames))
        MergeChild(sName, base, changed);
}

void CDataPack::MergeChild(const QString& sName, const CDataPack& base, const CDataPack& changed)
{
    static const CDataPack NONE;
    const int nBase = base.ChildIndex(sName);
    const int nChanged = changed.ChildIndex(sName);
    const int nOwn = FindOrAddChild(sName);
    m_children[nOwn].MergeChanges(nBase < 0 ? NONE : base.m_children[nBase],
                                  nChanged < 0 ? NONE : changed.m_children[nChanged]);
    PruneSubPack(nOwn);
}
