#pragma once

#include <QObject>

class CWindowActions;
class QMenu;

/** The list of the files that were opened or saved last, and its menu. */
class CRecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int LONGEST = 10;

    CRecentFiles(QMenu* pMenu, CWindowActions& actions);

    /** Puts the file first and saves the preferences at once. */
    void Add(const QString& sFileName);
    /** Fills the menu anew, for example after the preferences have been loaded. */
    void FillMenu();

signals:
    /** The user has chosen a file of the list. */
    void SignalOpen(const QString& sFileName);

public slots:
    void SlotClearRecentFiles();

private slots:
    /** Opens the file of the action that sent it. */
    void SlotOpenRecentFiles();

private:
    void Store(const QStringList& sFileList);

    QMenu* m_pMenu;
    CWindowActions& m_actions;
};
