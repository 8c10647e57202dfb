#pragma once

#include "frame/applicationinfo.h"
#include "frame/preferences/preferences.h"

#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

/** While it lives, every QSettings of user scope lies in a fresh folder, so that no test touches the user's.
 */
class CTestSettings
{
public:
    CTestSettings()
    {
        QStandardPaths::setTestModeEnabled(true);
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    }

private:
    QTemporaryDir m_folder;
};

/** At its end preferences and settings are as at a first start of the program. */
class CFreshPreferences
{
public:
    CFreshPreferences() = default;
    ~CFreshPreferences()
    {
        CPreferences::Instance() = CPreferences();
        QSettings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME).clear();
    }
    Q_DISABLE_COPY_MOVE(CFreshPreferences)
};
