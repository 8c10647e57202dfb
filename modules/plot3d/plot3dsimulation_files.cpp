// CPlot3DSimulation: its files as the user edits them and as display files name them.
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "modules/plot3d/icasefileseditor.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"

#include <QFileInfo>
#include <QScopedValueRollback>

bool CPlot3DSimulation::EditData()
{
    ICaseFilesEditor* const pEditor = ICaseFilesEditor::Installed();
    CCaseRecords records = GetRecords();
    records.bHoldsData = HoldsData();
    if (!pEditor || !pEditor->EditCaseFiles(records))
        return false;
    const QString sError = records.bNoDataRead ? QString() : Load(records);
    if (!sError.isEmpty())
        return UserPrompt::Tell(PromptWarning, "Grid File", sError);
    return ShowDisplayOf(records, CWidgetManager::Instance().GetActiveViewId());
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
