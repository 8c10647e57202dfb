#pragma once

#include "frame/imainmenus.h"
#include "frame/imainwindow.h"
#include "view/camera/cameraoperator.h"
#include "window/windowgeometry.h"

#include <QMainWindow>
#include <QStringList>
#include <QTimer>

#include <memory>

class CDisplayCommands;
class CCameraCommands;
class CDialogCommands;
class CDockLogic;
class CEditCommands;
class CFileCommands;
class CHelpCommands;
class CItemPanels;
class CRestartCommands;
class CSaveCommands;
class CSelectionCommands;
class CPickSession;
class CSimulationTabs;
class CViewArea;
class CViewCommands;
class CWindowActions;
class CWindowToolBars;

namespace Ui {
class CMainWindow;
}

/**
 * The one top-level window of an interactive run. It knows cases only through IModuleInterface and
 * ISimulation; the rest of the program reaches it through CWidgetManager. It puts its parts together and
 * keeps them in step with the active simulation; what commands do is in classes of their own.
 */
class CMainWindow : public QMainWindow, public IMainWindow, public IMainMenus
{
    Q_OBJECT

public:
    CMainWindow();
    ~CMainWindow() override;

    /** Shows the window as the last run left it: maximised or not. */
    void ShowAsStored();

    qint64 GetActiveViewId() const override;
    ISimulation* GetActiveSimulation(qint64 nViewId) const override;
    void UpdateActions() override;
    void RefreshDocks(qint64 nViewId, bool bForce, bool bAll) override;
    void UpdateActiveViewer(qint64 nFlags) override;
    IViewer* GetViewer(qint64 nIndex) const override;
    IViewer* GetViewerById(qint64 nViewId) const override;
    void SetStatusText(const QString& sText) override;
    void RunInTerminal() override {} // there is no terminal yet
    void CloseAll() override;
    void BlockUpdates(qint64 nSimulationId, bool bBlock) override;
    QImage captureImage(const SCapture& capture) override;

    void AddMenu(QMenu* pMenu) override;
    QMenu* GetImportMenu() override;
    QMenu* GetExportMenu() override;

    CViewArea& GetViewArea() { return *m_pViewArea; }
    CWindowActions& GetActions() { return *m_pActions; }
    CWindowToolBars& GetToolBars() { return *m_pToolBars; }
    CPickSession& GetPicks() { return *m_pPicks; }

signals:
    /** A dock that opens closes those that don't go with it. */
    void SignalCloseExcept(QWidget* pRequestingWidget);
    /** What the mouse does in the views has changed. */
    void SignalMouseMode(OglMouseMode_e eMode);
    void SignalActiveSimulationChanged();
    void SignalCaseSaved();
    void SignalRefreshDockWidgets();

public slots:
    /** Opens a file of any kind that a module can open; asks for it if the name is empty. */
    void SlotOpenSimulation(const QString& sFileName);
    /** The tab, the view or what stands in the view has changed: all that shows it follows. */
    void SlotActiveSimulationChanged();
    void SlotSimulationNameChanged(qlonglong nSimulationId);
    /** Tabs and title tell whether there are unsaved edits. */
    void SlotShowUnsaved();
    void SlotPreferences();
    void SlotExportScreenshot();
    /** Takes over theme, font size and width of the splitters. */
    void SlotUpdatePreferences();
    void SlotDefaultView();
    void SlotExit();
    /** The context menu of the view, at the mouse. */
    void SlotPopupMenu();
    void on_m_pSimulationTabList_currentChanged(int nIndex);
    void on_m_pSimulationTabList_tabCloseRequested(int nIndex);

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    void CreateModules();
    void BuildViewArea();
    void BuildActions();
    void BuildToolBars();
    void ApplyTheme();
    void ShowModuleWidgets();
    void ShowItemPanel();
    void ShowPopupMenu(const QPoint& position, const QList<QAction*>& further);

    const std::unique_ptr<Ui::CMainWindow> m_pUi;
    QTimer m_unsavedTimer;     // looking for edits takes the bytes of the case: once for many changes
    QStringList m_styleSheets; // 4, by the preference "GUI.Theme"
    SWindowLayout m_defaultLayout;
    bool m_bWasMaximised = false;
    std::unique_ptr<CItemPanels> m_pItemPanels;
    std::unique_ptr<CSimulationTabs> m_pTabs;
    CViewArea* m_pViewArea = nullptr;
    std::unique_ptr<CPickSession> m_pPicks;
    CWindowActions* m_pActions = nullptr;
    CWindowToolBars* m_pToolBars = nullptr;
    std::unique_ptr<CDockLogic> m_pDocks;
    std::unique_ptr<CViewCommands> m_pViewCommands;
    std::unique_ptr<CFileCommands> m_pFileCommands;
    std::unique_ptr<CSaveCommands> m_pSaveCommands;
    std::unique_ptr<CRestartCommands> m_pRestartCommands;
    std::unique_ptr<CEditCommands> m_pEditCommands;
    std::unique_ptr<CSelectionCommands> m_pSelectionCommands;
    std::unique_ptr<CDisplayCommands> m_pDisplayCommands;
    std::unique_ptr<CHelpCommands> m_pHelpCommands;
    std::unique_ptr<CCameraCommands> m_pCameraCommands;
    std::unique_ptr<CDialogCommands> m_pDialogCommands;
};
