// CModuleInterface: saving and opening the cases of a module.
#include "frame/bytestream.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/base/casestorage.h"
#include "modules/base/movedfiles.h"
#include "modules/base/ui/moduleinterface.h"
#include "modules/base/updateblock.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QFileInfo>

namespace {

constexpr const char *OPEN_TITLE = "Open Simulation", *SAVE_TITLE = "Save Simulation";
constexpr const char* FAILED = "Failed to open the selected file";

} // namespace

bool CModuleInterface::Save(const QString& sFile, qint64 nSimulationId)
{
    ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    if (!pSimulation || pSimulation->GetModuleId() != m_nId)
        return false;
    bool bSaved = false;
    {
        const CWaitCursor wait;
        bSaved = SaveCase(*pSimulation, m_sName, QFileInfo(sFile).absoluteFilePath());
    }
    return bSaved || UserPrompt::Tell(PromptCritical, SAVE_TITLE, FAILED);
}

/** False, after telling why, for a file that can't be opened here. */
bool CModuleInterface::ReadCase(const QString& sFile, SCaseFile& file) const
{
    QByteArray bytes;
    if (!ReadWholeFile(sFile, bytes))
        return UserPrompt::Tell(PromptCritical, OPEN_TITLE, FAILED);
    const StoredFile_e eStored = file.FromBytes(bytes);
    if (file.sModule != m_sName)
        return UserPrompt::Tell(PromptCritical, OPEN_TITLE,
                                QString("The selected file is not a valid %1 simulation").arg(GetFileKind()));
    if (eStored == StoredNewer)
        TellNewer(sFile);
    else if (eStored == StoredBad)
        UserPrompt::Tell(PromptCritical, OPEN_TITLE, FAILED);
    return eStored == StoredOk;
}

qint64 CModuleInterface::Open(const QString& sFile, qint64 nView)
{
    SCaseFile file;
    ISimulation* const pSimulation = ReadCase(sFile, file) ? MakeSimulation() : nullptr;
    if (!pSimulation)
        return -1;
    CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nViewId = nView == -1 ? GetActiveViewId() : nView;
    pSimulation->SetFilePath(QFileInfo(sFile).absoluteFilePath());
    manager.AddSimulation(pSimulation, nViewId);
    const qint64 nId = pSimulation->GetId();
    bool bFilled = false;
    {
        const CUpdateBlock block(nId);
        bFilled = FillCase(*pSimulation, file, nViewId, nView == -1);
    }
    if (bFilled)
        return nId;
    pSimulation->DeleteAllItems(); // with nothing to show it leaves no display file
    manager.RemoveSimulationFromView(nId, nViewId);
    UserPrompt::Tell(PromptCritical, OPEN_TITLE, FAILED);
    return -1;
}

qint64 CModuleInterface::OpenFromKey(const QByteArray& key, qint64 nViewId, const QString& sFolder)
{
    CByteReader reader(key);
    qint64 nModuleId = -1;
    QString sFilePath;
    reader.Read(nModuleId);
    if (!reader.Read(sFilePath) || nModuleId != m_nId || sFilePath.isEmpty())
        return -1;
    const QString sMoved = QFileInfo(sFilePath).isFile() ? QString() : FindMovedFile(sFilePath, sFolder);
    return Open(sMoved.isEmpty() ? sFilePath : sMoved, nViewId);
}
