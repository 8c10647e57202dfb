#include "window/recentfiles.h"

#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "window/commands/windowactions.h"

#include <QFileInfo>
#include <QMenu>

CRecentFiles::CRecentFiles(QMenu* pMenu, CWindowActions& actions) : m_pMenu(pMenu), m_actions(actions)
{
    m_pMenu->setToolTipsVisible(true);
    actions.Bind(ActionClearRecentFiles, this, &CRecentFiles::SlotClearRecentFiles);
    FillMenu();
}

void CRecentFiles::Add(const QString& sFileName)
{
    const QString sPath = QFileInfo(sFileName).absoluteFilePath();
    QStringList sFileList = Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES);
    sFileList.removeAll(sPath);
    sFileList.prepend(sPath);
    Store(sFileList.mid(0, LONGEST));
}

void CRecentFiles::SlotClearRecentFiles() { Store({}); }

void CRecentFiles::Store(const QStringList& sFileList)
{
    Set(CPreferences::Instance(), PreferenceKey::RECENT_FILES, sFileList);
    CPreferences::Instance().Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    FillMenu();
}

void CRecentFiles::FillMenu()
{
    const QStringList sFileList = Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES);
    m_pMenu->clear();
    if (sFileList.isEmpty()) {
        m_pMenu->addAction(m_actions.Get(ActionNoRecentFile));
        return;
    }
    for (int n = 0; n < sFileList.size(); ++n) {
        const QString sText = QString(sFileList[n]).replace('&', "&&");
        QAction* const pAction = m_pMenu->addAction(QString("&%1 %2").arg((n + 1) % LONGEST).arg(sText));
        pAction->setData(sFileList[n]);
        connect(pAction, &QAction::triggered, this, &CRecentFiles::SlotOpenRecentFiles);
    }
    m_pMenu->addSeparator();
    m_pMenu->addAction(m_actions.Get(ActionClearRecentFiles));
}

void CRecentFiles::SlotOpenRecentFiles()
{
    emit SignalOpen(static_cast<const QAction*>(sender())->data().toString());
}
