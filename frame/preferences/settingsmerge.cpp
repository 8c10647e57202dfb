#include "frame/preferences/settingsmerge.h"

#include "frame/preferences/preferencekeys.h"

#include <algorithm>

namespace {

QStringList MergeRecentFiles(const QStringList& sStoreList, const QStringList& sBaseList,
                             const QStringList& sOwnList)
{
    // From the end, own entries that are in the order of the base are those that weren't used since.
    int nUsed = sOwnList.size();
    for (int nLimit = sBaseList.size(); nUsed > 0; --nUsed) {
        const int nBase = sBaseList.indexOf(sOwnList[nUsed - 1]);
        if (nBase < 0 || nBase >= nLimit)
            break;
        nLimit = nBase;
    }
    QStringList sList = sOwnList.mid(0, nUsed);
    const bool bFull = sOwnList.size() >= PreferenceKey::RECENT_FILES_LIMIT;
    for (const QString& sFile : sStoreList) {
        // A list that is full has lost entries to newer ones; otherwise the user has removed them.
        const bool bRemoved = !bFull && sBaseList.contains(sFile) && !sOwnList.contains(sFile);
        if (!bRemoved && !sList.contains(sFile))
            sList.append(sFile);
    }
    return sList.mid(0, PreferenceKey::RECENT_FILES_LIMIT);
}

QString FreeName(const QStringList& sUsedList)
{
    for (qint64 nId = 1;; ++nId)
        if (const QString sName = QString::number(nId); !sUsedList.contains(sName))
            return sName;
}

/** All three are the sub-pack of the computers. */
CDataPack MergeComputers(CDataPack store, const CDataPack& base, const CDataPack& own)
{
    const QStringList sBaseList = base.SubPackNames({});
    const QStringList sOwnList = own.SubPackNames({});
    for (const QString& sName : sBaseList)
        if (!sOwnList.contains(sName))
            store.RemoveSubPack(sName);
    for (const QString& sName : sOwnList) {
        const CDataPack computer = own.GetSubPack(sName);
        if (sBaseList.contains(sName) && base.GetSubPack(sName).ToBytes() == computer.ToBytes())
            continue;
        const QStringList sStoreList = store.SubPackNames({});
        const bool bTaken = !sBaseList.contains(sName) && sStoreList.contains(sName) &&
                            store.GetSubPack(sName).ToBytes() != computer.ToBytes();
        store.SetSubPack(bTaken ? FreeName(sStoreList + sOwnList) : sName, computer);
    }
    return store;
}

using Variables = QVector<SStoredVariable>;

Variables::iterator FindByName(Variables& variables, const QString& sName)
{
    return std::find_if(variables.begin(), variables.end(),
                        [&](const SStoredVariable& variable) { return variable.sName == sName; });
}

bool HasId(const Variables& variables, qint64 nId)
{
    return std::any_of(variables.begin(), variables.end(),
                       [=](const SStoredVariable& variable) { return variable.nId == nId; });
}

void AddVariable(Variables& variables, SStoredVariable variable)
{
    for (qint64 nId = 1; HasId(variables, variable.nId); ++nId)
        variable.nId = nId;
    variables.append(variable);
}

Variables MergeVariables(Variables store, Variables base, Variables own)
{
    for (const SStoredVariable& former : std::as_const(base))
        if (const auto found = FindByName(store, former.sName);
            found != store.end() && FindByName(own, former.sName) == own.end())
            store.erase(found);
    for (const SStoredVariable& variable : std::as_const(own)) {
        const auto former = FindByName(base, variable.sName);
        if (former != base.end() && *former == variable)
            continue;
        const auto found = FindByName(store, variable.sName);
        if (found == store.end()) {
            AddVariable(store, variable);
            continue;
        }
        const qint64 nId = found->nId; // it may be another one than here
        *found = variable;
        found->nId = nId;
    }
    return store;
}

} // namespace

SSettings MergeSettings(const SSettings& store, const SSettings& base, const SSettings& own)
{
    using namespace PreferenceKey;
    SSettings merged = store;
    merged.pack.MergeChanges(base.pack, own.pack);
    Set(merged.pack, RECENT_FILES,
        MergeRecentFiles(Get(store.pack, RECENT_FILES), Get(base.pack, RECENT_FILES),
                         Get(own.pack, RECENT_FILES)));
    const CDataPack computers =
        MergeComputers(store.pack.GetSubPack(REMOTE_PACK), base.pack.GetSubPack(REMOTE_PACK),
                       own.pack.GetSubPack(REMOTE_PACK));
    ReplaceSubPack(merged.pack, REMOTE_PACK, computers);
    merged.variables = MergeVariables(store.variables, base.variables, own.variables);
    return merged;
}

void ReplaceSubPack(CDataPack& pack, const QString& sPath, const CDataPack& content)
{
    if (content.IsEmpty())
        pack.RemoveSubPack(sPath);
    else
        pack.SetSubPack(sPath, content);
}
