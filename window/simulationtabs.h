#pragma once

#include <QObject>

class QTabBar;

/** One tab for each simulation of the active view; the tab on top is the one that commands apply to. */
class CSimulationTabs : public QObject
{
    Q_OBJECT

public:
    explicit CSimulationTabs(QTabBar* pTabBar);

    /** Lists the simulations of the view. */
    void Fill(qint64 nViewId);
    /** Each tab tells by a "*" whether its case has unsaved edits. */
    void ShowUnsaved();

    /** The tab at the index comes on top; nothing while the tabs are filled. */
    void Choose(int nIndex);
    /** Takes the simulation out of the view, unless the user refuses; the tab that remains comes on top. */
    void Close(int nIndex);

private:
    qint64 IdAt(int nIndex) const;

    QTabBar* m_pTabBar;
    qint64 m_nViewId = -1;
    bool m_bFilling = false;
};
