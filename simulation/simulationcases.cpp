#include "simulation/simulationcases.h"

#include "frame/packs/bytestream.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"

CSimulationCases::CSimulationCases() : m_pFormer(Install(this)) {}
CSimulationCases::~CSimulationCases() { Install(m_pFormer); }

double CSimulationCases::GetTime(qint64 nViewId, qint64 nSimulationId) const
{
    return CSimulationManager::Instance().GetRequestTime(nViewId, nSimulationId);
}

QVector<qint64> CSimulationCases::GetBlockIds(qint64 nSimulationId) const
{
    QVector<qint64> ids;
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    if (!pSimulation)
        return ids;
    for (const CItem* const pBlock : pSimulation->GetBlocks())
        ids.append(pBlock->GetId());
    return ids;
}

// The key of the data files without the path of the case's own file, which changes when it is saved
// elsewhere.
QByteArray CSimulationCases::GetKey(qint64 nSimulationId) const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    const QByteArray key = pSimulation ? pSimulation->GetDataFileKey() : QByteArray();
    CByteReader reader(key);
    qint64 nModuleId = -1;
    QString sFilePath;
    if (!reader.Read(nModuleId) || !reader.Read(sFilePath))
        return key;
    return key.left(sizeof nModuleId) + key.right(int(reader.BytesLeft()));
}

qint64 CSimulationCases::TranslateItem(qint64 nSimulationId, qint64 nItemId, qint64 nOtherSimulationId) const
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    const ISimulation* const pSimulation = manager.GetSimulation(nSimulationId);
    const ISimulation* const pOther = manager.GetSimulation(nOtherSimulationId);
    const CItem* const pItem = pSimulation ? pSimulation->GetItem(nItemId) : nullptr;
    if (!pItem || !pOther)
        return -1;
    const QByteArray linkKey = pItem->GetLinkKey();
    for (const CItem* const pCandidate : pOther->GetItems(pItem->GetType()))
        if (!linkKey.isEmpty() && pCandidate->GetLinkKey() == linkKey)
            return pCandidate->GetId();
    for (const CItem* const pCandidate : pOther->GetItems(pItem->GetType()))
        if (pCandidate->GetName() == pItem->GetName())
            return pCandidate->GetId();
    return -1;
}
