#include "data/variables/variablekeys.h"

#include "data/variables/variablemanager.h"
#include "frame/packs/bytestream.h"

#include <QHash>

namespace {

int s_nScopes = 0;
QHash<qint64, QByteArray> s_keys;                     // by variable
QHash<std::pair<qint64, QByteArray>, qint64> s_found; // by simulation and key

QByteArray FormKey(qint64 nVariableId)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId);
    return pVariable ? pVariable->ToBytes() : QByteArray();
}

qint64 FindByName(const QByteArray& key, qint64 nSimulationId)
{
    const CVariableManager& manager = CVariableManager::Instance();
    CByteReader reader(key);
    bool bFile = false;
    QString sName;
    qint32 nTag = 0, nKind = 0, nLocation = 0;
    reader.Read(bFile);
    reader.Read(sName);
    reader.Read(nTag);
    reader.Read(nKind);
    if (!reader.Read(nLocation) || nLocation < LocationNone || nLocation > LocationCell)
        return -1;
    const IVariable* const pVariable = manager.GetVariable(
        manager.FindByName(nSimulationId, sName, static_cast<VariableLocation_e>(nLocation)));
    return pVariable && pVariable->GetKind() == nKind && pVariable->IsFileVariable() == bFile
               ? pVariable->GetId()
               : -1;
}

qint64 Search(const QByteArray& key, qint64 nSimulationId)
{
    const qint64 nFound = CVariableManager::Instance().FindByBytes(key, nSimulationId);
    return nFound == -1 ? FindByName(key, nSimulationId) : nFound;
}

} // namespace

VariableKeys::CScope::CScope() { ++s_nScopes; }

VariableKeys::CScope::~CScope()
{
    if (--s_nScopes > 0)
        return;
    s_keys.clear();
    s_found.clear();
}

QByteArray VariableKeys::KeyOf(qint64 nVariableId)
{
    if (s_nScopes == 0)
        return FormKey(nVariableId);
    const auto known = s_keys.constFind(nVariableId);
    return known != s_keys.cend() ? *known : *s_keys.insert(nVariableId, FormKey(nVariableId));
}

qint64 VariableKeys::Find(const QByteArray& key, qint64 nSimulationId)
{
    if (key.isEmpty())
        return -1;
    if (s_nScopes == 0)
        return Search(key, nSimulationId);
    const std::pair<qint64, QByteArray> place(nSimulationId, key);
    const auto known = s_found.constFind(place);
    return known != s_found.cend() ? *known : *s_found.insert(place, Search(key, nSimulationId));
}
