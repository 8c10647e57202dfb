#include "simulation/displayfilechoice.h"

#include "frame/preferences/recentfolder.h"
#include "frame/userprompt.h"
#include "simulation/isimulation.h"

#include <QDir>
#include <QFileInfo>

namespace {
constexpr const char* TITLE = "Select Display File";
}

QStringList ListDisplayFiles(const ISimulation& simulation)
{
    const QString sDirectory = Get(simulation, SimulationKey::DIRECTORY);
    QStringList sFileList;
    if (sDirectory.isEmpty()) // no directory would be the current one
        return sFileList;
    for (const QFileInfo& file : QDir(sDirectory).entryInfoList({"*.disp"}, QDir::Files, QDir::Name))
        sFileList.append(file.absoluteFilePath());
    return sFileList;
}

QString ChooseDisplayFileOf(const QStringList& sFileList)
{
    QStringList sEntryList{"Skip"};
    for (const QString& sFile : sFileList)
        sEntryList.append(QFileInfo(sFile).fileName());
    const int nChoice = UserPrompt::AskChoice({TITLE, "Available Display Files", sEntryList});
    return nChoice <= 0 ? QString() : sFileList[nChoice - 1];
}

QString AskDisplayFile()
{
    return RecentFolder::AskFile({TITLE, {}, "Display Files (*.disp);;All Files (*)"});
}
