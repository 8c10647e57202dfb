#include "simulation/displayfilechoice.h"

#include "frame/preferencekeys.h"
#include "frame/preferences.h"
#include "frame/userprompt.h"
#include "simulation/isimulation.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* TITLE = "Select Display File";

QStringList ListDisplayFiles(const QString& sDirectory)
{
    // No directory would be the current one.
    return sDirectory.isEmpty() ? QStringList()
                                : QDir(sDirectory).entryList({"*.disp"}, QDir::Files, QDir::Name);
}

QString AskAnyFile()
{
    CPreferences& preferences = CPreferences::Instance();
    const QString sFile = UserPrompt::AskFile({TITLE, Get(preferences, PreferenceKey::RECENT_DIRECTORY),
                                               "Display Files (*.disp);;All Files (*)", false});
    if (!sFile.isEmpty())
        Set(preferences, PreferenceKey::RECENT_DIRECTORY, QFileInfo(sFile).absolutePath());
    return sFile;
}

} // namespace

QString AskDisplayFile(const ISimulation& simulation)
{
    const QString sDirectory = Get(simulation, SimulationKey::DIRECTORY);
    const QStringList sFileList = ListDisplayFiles(sDirectory);
    if (sFileList.isEmpty())
        return AskAnyFile();
    const int nChoice =
        UserPrompt::AskChoice({TITLE, "Available Display Files", QStringList("Skip") + sFileList});
    return nChoice <= 0 ? QString() : QDir(sDirectory).filePath(sFileList[nChoice - 1]);
}
