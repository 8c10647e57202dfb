#include "simulation/caseclosing.h"

#include "frame/replacefile.h"
#include "frame/userprompt.h"
#include "simulation/casesaving.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

ISimulation* Find(qint64 nSimulationId)
{
    return CSimulationManager::Instance().GetSimulation(nSimulationId);
}

const QStringList DISPLAY_FILES = {"*.disp"};

/** The display file that was written last; empty if there is none. */
QString NewestDisplayFile(const QString& sDirectory)
{
    // Names hold the time to the second; by name settles what file times can't tell apart.
    const QFileInfoList files = QDir(sDirectory).entryInfoList(DISPLAY_FILES, QDir::Files, QDir::Name);
    QFileInfo newest;
    for (const QFileInfo& file : files)
        if (!newest.isFile() || file.lastModified() >= newest.lastModified())
            newest = file;
    return newest.isFile() ? newest.filePath() : QString();
}

/** Copies over an existing target, which stays whole if the copy fails. */
bool ReplaceByCopy(const QString& sSource, const QString& sTarget)
{
    if (QFileInfo(sSource) == QFileInfo(sTarget))
        return true;
    QFile source(sSource);
    if (!source.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = source.readAll();
    return bytes.size() == source.size() && ReplaceFile(sTarget, bytes);
}

} // namespace

bool CCaseClosing::Ask(const QVector<qint64>& simulationIds)
{
    for (const qint64 nId : simulationIds) {
        const ISimulation* const pSimulation = Find(nId);
        const QString sWarning = pSimulation ? pSimulation->GetCloseWarning() : QString();
        if (!sWarning.isEmpty() && !UserPrompt::Confirm("Close Simulation", sWarning))
            return false;
    }
    QSet<qint64> askedIds;
    if (!AskUnsaved(simulationIds, askedIds))
        return false;
    QVector<SDisplayCopy> copies;
    for (const qint64 nId : simulationIds)
        if (!askedIds.contains(nId) && !AskDisplayFile(nId, copies))
            return false;
    m_displayCopies = copies;
    for (const qint64 nId : simulationIds)
        if (ISimulation* const pSimulation = Find(nId))
            pSimulation->StopProcess();
    return true;
}

bool CCaseClosing::AskInView(qint64 nSimulationId)
{
    QVector<SDisplayCopy> copies;
    if (!AskDisplayFile(nSimulationId, copies))
        return false;
    m_displayCopies = copies;
    return true;
}

/** False if the user cancelled, or wanted to save and couldn't. */
bool CCaseClosing::AskUnsaved(const QVector<qint64>& simulationIds, QSet<qint64>& askedIds) const
{
    enum { SAVE, DISCARD, CANCEL };
    for (const qint64 nId : simulationIds) {
        const ISimulation* const pSimulation = Find(nId);
        if (!pSimulation || !CaseSaving::CanSave(*pSimulation) || !pSimulation->HasUnsavedEdits())
            continue;
        const QString sText = QString("'%1' has changes that are not saved. Would you like to save them?");
        const int nAnswer = UserPrompt::Ask({PromptQuestion,
                                             "Close Simulation",
                                             sText.arg(pSimulation->GetName()),
                                             {"Save", "Discard", "Cancel"},
                                             SAVE,
                                             CANCEL});
        if (nAnswer == CANCEL || (nAnswer == SAVE && !CaseSaving::Save(*pSimulation)))
            return false;
        askedIds.insert(nId);
    }
    return true;
}

/** False if the user cancelled. What is saved in a file of the case isn't asked about. */
bool CCaseClosing::AskDisplayFile(qint64 nSimulationId, QVector<SDisplayCopy>& copies) const
{
    enum { SAVE_AS, CLOSE, CANCEL };
    const ISimulation* const pSimulation = Find(nSimulationId);
    const QString sDirectory = pSimulation ? Get(*pSimulation, SimulationKey::DIRECTORY) : QString();
    if (sDirectory.isEmpty() || !pSimulation->GetFilePath().isEmpty() ||
        QDir(sDirectory).entryList(DISPLAY_FILES, QDir::Files).isEmpty())
        return true;
    const QString sText = QString("Would you like to save '%1' display file with a different name?");
    const int nAnswer = UserPrompt::Ask({PromptQuestion,
                                         "Close Simulation",
                                         sText.arg(pSimulation->GetName()),
                                         {"Save As...", "Close", "Cancel"},
                                         CLOSE,
                                         CANCEL});
    if (nAnswer != SAVE_AS)
        return nAnswer == CLOSE;
    const QString sTarget =
        UserPrompt::AskFile({"Save Display File", sDirectory, "Display Files (*.disp)", true, ".disp"});
    if (sTarget.isEmpty())
        return false;
    copies.append({nSimulationId, sDirectory, sTarget, {}});
    return true;
}

/** Simulations that close together may share a directory: each has its own file, the newest as it leaves. */
void CCaseClosing::NoteDisplayFile(qint64 nSimulationId)
{
    for (SDisplayCopy& copy : m_displayCopies)
        if (copy.nSimulationId == nSimulationId)
            copy.sSource = NewestDisplayFile(copy.sDirectory);
}

void CCaseClosing::CopyDisplayFiles()
{
    for (const SDisplayCopy& copy : std::exchange(m_displayCopies, {})) {
        const QString sSource = copy.sSource.isEmpty() ? NewestDisplayFile(copy.sDirectory) : copy.sSource;
        if (sSource.isEmpty() || !ReplaceByCopy(sSource, copy.sTarget))
            UserPrompt::Tell(PromptWarning, "Save Display File",
                             QString("Failed to write the display file %1").arg(copy.sTarget));
    }
}
