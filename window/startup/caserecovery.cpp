#include "window/startup/caserecovery.h"

#include "cases/files/casestorage.h"
#include "frame/applicationinfo.h"
#include "frame/messagesink.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/settingsstore.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "window/commands/showcase.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

namespace {

constexpr int INTERVAL_MS = 2 * 60 * 1000;
constexpr const char* TITLE = "Recover Simulation";
constexpr const char *RECOVER = "Recover", *OPEN_SAVED = "Open Saved", *SKIP = "Skip", *DISCARD = "Discard";

/** The case was saved after all: its file holds the same. */
bool StandsInItsFile(const SAutosaveFile& content)
{
    QByteArray bytes;
    return !content.sFilePath.isEmpty() && ReadWholeFile(content.sFilePath, bytes) &&
           bytes == content.caseFile;
}

bool IsOpen(const QString& sFilePath)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    const QVector<qint64> ids = manager.GetSimulationIds();
    return std::any_of(ids.begin(), ids.end(), [&](qint64 nId) {
        return QFileInfo(manager.GetSimulation(nId)->GetFilePath()) == QFileInfo(sFilePath);
    });
}

QString AskFor(const SAutosaveFile& content)
{
    const bool bSaved = QFileInfo::exists(content.sFilePath);
    const QString sText =
        QString("The program ended unexpectedly, and '%1' had changes that were not saved.%2")
            .arg(content.sName, bSaved ? QString("\n%1").arg(content.sFilePath) : QString());
    QStringList sButtonList = {RECOVER, SKIP, DISCARD};
    if (bSaved)
        sButtonList.insert(1, OPEN_SAVED);
    const int nSkip = sButtonList.indexOf(SKIP);
    return sButtonList.value(UserPrompt::Ask({PromptQuestion, TITLE, sText, sButtonList, 0, nSkip}), SKIP);
}

} // namespace

CCaseRecovery::CCaseRecovery(const QString& sRoot) : m_sRoot(sRoot), m_autosaver(sRoot)
{
    connect(&m_timer, &QTimer::timeout, this, &CCaseRecovery::SlotKeepCases);
    m_timer.start(INTERVAL_MS);
}

QString CCaseRecovery::DefaultRoot()
{
    const CSettingsStore settings(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    return QFileInfo(settings.FileName()).dir().filePath("autosave");
}

void CCaseRecovery::SlotKeepCases()
{
    if (m_autosaver.Run())
        return;
    const QString sText = QString("Unsaved changes can't be kept in %1").arg(m_sRoot);
    CMessageSink::Instance().Log(sText);
    CWidgetManager::Instance().SetStatusText(sText);
}

void CCaseRecovery::End()
{
    m_timer.stop();
    m_autosaver.End();
}

void CCaseRecovery::OfferLostCases()
{
    const CLostCases lost(m_sRoot);
    for (const CLostCases::SCase& lostCase : lost.GetCases())
        Offer(lostCase);
}

void CCaseRecovery::Offer(const CLostCases::SCase& lost)
{
    if (StandsInItsFile(lost.content)) {
        CLostCases::Remove(lost);
        return;
    }
    const QString sAnswer = AskFor(lost.content);
    if (sAnswer == SKIP || (sAnswer == RECOVER && !Recover(lost.content)))
        return; // the next start asks again
    if (sAnswer == OPEN_SAVED) {
        emit SignalOpenSaved(lost.content.sFilePath);
        if (!IsOpen(lost.content.sFilePath))
            return; // its file may be the worse of the two
    }
    if (sAnswer == RECOVER && !m_autosaver.Run())
        return;
    CLostCases::Remove(lost); // what was recovered is kept by this instance now
}

/** Opens the case as it was, with changes against its file. False after telling why that isn't possible. */
bool CCaseRecovery::Recover(const SAutosaveFile& content) const
{
    IModuleInterface* const pModule = CModuleRegistry::Instance().FindByName(content.sModule);
    QTemporaryFile file(QDir(m_sRoot).filePath("recover-XXXXXX.zento"));
    if (!pModule)
        return UserPrompt::Tell(PromptWarning, TITLE,
                                QString("There is no module '%1'").arg(content.sModule));
    if (!file.open() || file.write(content.caseFile) != content.caseFile.size() || !file.flush())
        return UserPrompt::Tell(PromptWarning, TITLE, QString("Can't write to %1").arg(m_sRoot));
    const qint64 nId = pModule->Open(file.fileName(), -1);
    if (nId == -1)
        return false;
    ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nId);
    pSimulation->SetFilePath(content.sFilePath);
    pSimulation->NoteUnsaved();
    ShowCase::InActiveView(nId);
    return true;
}
