#include "frame/preferences/recentfolder.h"

#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

#include <QDir>
#include <QFileInfo>

QString RecentFolder::AskFile(SFilePrompt prompt)
{
    const QString sFolder = Get(CPreferences::Instance(), PreferenceKey::RECENT_DIRECTORY);
    if (prompt.sStart.isEmpty())
        prompt.sStart = sFolder;
    else if (QFileInfo(prompt.sStart).isRelative() && !sFolder.isEmpty())
        prompt.sStart = QDir(sFolder).filePath(prompt.sStart);
    const QString sFileName = UserPrompt::AskFile(prompt);
    if (!sFileName.isEmpty())
        Keep(sFileName);
    return sFileName;
}

void RecentFolder::Keep(const QString& sFileName)
{
    CPreferences& preferences = CPreferences::Instance();
    const QString sFolder = QFileInfo(sFileName).absolutePath();
    if (sFolder == Get(preferences, PreferenceKey::RECENT_DIRECTORY))
        return;
    Set(preferences, PreferenceKey::RECENT_DIRECTORY, sFolder);
    preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
}
