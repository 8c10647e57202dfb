#pragma once

#include <QObject>
#include <QVector>

class CMirrorToolBar;
class CVariableToolBar;
class CWindowActions;
class QMainWindow;
class QMenu;
class QToolBar;

/** The common toolbars of the main window. */
class CWindowToolBars : public QObject
{
    Q_OBJECT

public:
    /** Makes them from the actions and adds them to the window, which owns them. */
    CWindowToolBars(QMainWindow* pWindow, CWindowActions& actions);

    /** Lets the "Toolbars" menu show and hide these and further toolbars. */
    static void ListInMenu(const QVector<QToolBar*>& toolBars, QMenu* pMenu);
    const QVector<QToolBar*>& GetToolBars() const { return m_toolBars; }

    /** Brings boxes and labels to the state of the active simulation. */
    void ShowActiveSimulation();

    /** The selection, or what it is shown with, has changed. */
    void ShowSelection();

    CMirrorToolBar* GetMirrorToolBar() const { return m_pMirrorToolBar; }
    /** Those with boxes for variables. */
    QVector<CVariableToolBar*> GetVariableToolBars() const
    {
        return {m_pAnalyzeToolBar, m_pThresholdToolBar};
    }

private:
    QVector<QToolBar*> m_toolBars;
    CMirrorToolBar* m_pMirrorToolBar;
    CVariableToolBar* m_pAnalyzeToolBar;
    CVariableToolBar* m_pThresholdToolBar;
};
