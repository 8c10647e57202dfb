#pragma once

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
