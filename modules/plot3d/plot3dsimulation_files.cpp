// CPlot3DSimulation: its display files, and what they say of its data.
#include "cases/display/displayfile.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"

#include <QFileInfo>
#include <QScopedValueRollback>

/** Without items, or without their data, there is nothing that anybody has looked at. */
void CPlot3DSimulation::SaveDisplayFile(qint64 nViewId)
{
    if (GetItemCount() > 0 && m_sDataProblemList.isEmpty())
        WriteDisplayFile(*this, nViewId);
}

bool CPlot3DSimulation::ChooseDisplayFile(qint64 nViewId)
{
    if (std::exchange(m_bDisplayChosen, false))
        return false;
    return OfferDisplayFiles(*this, nViewId);
}

bool CPlot3DSimulation::LoadDisplayFile(const QString& sFile, qint64 nViewId)
{
    return ReadDisplayFile(*this, sFile, nViewId);
}

bool CPlot3DSimulation::ShowDisplayOf(const CCaseRecords& records, qint64 nViewId)
{
    const QScopedValueRollback<bool> guard(m_bKeepData, true);
    if (!records.sRestartFile.isEmpty())
        return ShowFieldView(*this, records.sRestartFile, nViewId);
    return records.sDisplayFile.isEmpty() || LoadDisplayFile(records.sDisplayFile, nViewId);
}

QJsonObject CPlot3DSimulation::SaveDataFiles() const { return TakeDataFileKeys(*this); }

QString CPlot3DSimulation::LoadDataFiles(const QJsonObject& settings, const QString& sFolder)
{
    if (m_bKeepData)
        return {};
    QJsonObject keys;
    for (auto it = settings.begin(); it != settings.end(); ++it)
        if (it.key().startsWith("dataFiles."))
            keys[it.key()] = it.value();
    if (keys.isEmpty())
        return {};
    const CCaseRecords current = GetRecords();
    const CCaseRecords records =
        ReadDataFileKeys(keys, current, {sFolder, Get(*this, SimulationKey::DIRECTORY)});
    if (const QString sError = AreSameFiles(records, current) ? QString() : Load(records); !sError.isEmpty())
        return sError;
    if (!m_case.blocks.isEmpty())
        WriteCaseFiles(*this, records, m_case, sFolder);
    return {};
}
