// CModuleInterface: saving and opening the cases of a module.
#include "cases/files/casestorage.h"
#include "cases/files/movedfiles.h"
#include "cases/files/updateblock.h"
#include "frame/packs/bytestream.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/base/ui/moduleinterface.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr const char *OPEN_TITLE = "Open Simulation", *SAVE_TITLE = "Save Simulation";
constexpr const char* FAILED = "Failed to open the selected file";

/** "NAME (2)", or the next number that no open case has. */
QString NameOfCopy(const QString& sName)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    QSet<QString> taken;
    for (const qint64 nId : manager.GetSimulationIds())
        taken.insert(manager.GetSimulation(nId)->GetName());
    const QString sStem = QString(sName).remove(QRegularExpression(R"( \(\d+\)$)"));
    int nNumber = 2;
    while (taken.contains(QString("%1 (%2)").arg(sStem).arg(nNumber)))
        ++nNumber;
    return QString("%1 (%2)").arg(sStem).arg(nNumber);
}

/** The id of the case that stands in the view now; -1 if the content can't be read, and nothing stands there.
 */
qint64 AddFilled(ISimulation* pSimulation, const SCaseFile& file, qint64 nViewId, bool bWithDisplay)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    manager.AddSimulation(pSimulation, nViewId);
    const qint64 nId = pSimulation->GetId();
    {
        const CUpdateBlock block(nId);
        if (FillCase(*pSimulation, file, nViewId, bWithDisplay))
            return nId;
    }
    pSimulation->DeleteAllItems(); // with nothing to show it leaves no display file
    manager.RemoveSimulationFromView(nId, nViewId);
    return -1;
}

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
    pSimulation->SetFilePath(QFileInfo(sFile).absoluteFilePath());
    const qint64 nId = AddFilled(pSimulation, file, nView == -1 ? GetActiveViewId() : nView, nView == -1);
    if (nId == -1)
        UserPrompt::Tell(PromptCritical, OPEN_TITLE, FAILED);
    return nId;
}

qint64 CModuleInterface::OpenCopy(qint64 nSimulationId, qint64 nFromViewId, qint64 nToViewId)
{
    const ISimulation* const pOriginal = CSimulationManager::Instance().GetSimulation(nSimulationId);
    ISimulation* const pCopy = pOriginal ? MakeSimulation() : nullptr;
    if (!pCopy)
        return -1;
    SCaseFile file;
    file.data = pOriginal->ToBytes();
    file.display = pOriginal->SaveViewState(nFromViewId);
    const QString sName = NameOfCopy(pOriginal->GetName());
    if (AddFilled(pCopy, file, nToViewId, true) == -1)
        return -1;
    pCopy->SetName(sName);
    if (pOriginal->HasUnsavedEdits())
        pCopy->NoteUnsaved();
    else
        pCopy->NoteSaved();
    return pCopy->GetId();
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
