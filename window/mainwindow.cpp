#include "window/mainwindow.h"

#include "frame/applicationinfo.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/ui/fontincrement.h"
#include "frame/widgetmanager.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/panel/itempanel.h"
#include "simulation/panel/itempanels.h"
#include "simulation/simulationmanager.h"
#include "ui_mainwindow.h"
#include "view/dialogs/screenshotdialog.h"
#include "view/gl/shadermanager.h"
#include "window/commands/cameracommands.h"
#include "window/commands/dialogcommands.h"
#include "window/commands/displaycommands.h"
#include "window/commands/editcommands.h"
#include "window/commands/filecommands.h"
#include "window/commands/helpcommands.h"
#include "window/commands/restartcommands.h"
#include "window/commands/savecommands.h"
#include "window/commands/selectioncommands.h"
#include "window/commands/viewcommands.h"
#include "window/commands/windowactions.h"
#include "window/docklogic.h"
#include "window/mirrortoolbar.h"
#include "window/picksession.h"
#include "window/preferences/preferencesdialog.h"
#include "window/simulationtabs.h"
#include "window/startup/startuptimings.h"
#include "window/stylesheets.h"
#include "window/variabletoolbar.h"
#include "window/viewarea.h"
#include "window/windowcapture.h"
#include "window/windowmenus.h"
#include "window/windowtoolbars.h"

#include <QCloseEvent>
#include <QMimeData>
#include <QToolButton>

namespace {

constexpr int UNSAVED_DELAY_MS = 100;

/** Calls the function with each module, in the order of their ids. */
template <class Function> void ForEachModule(const Function& function)
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId)
        if (IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId))
            function(*pModule);
}

QStringList LocalFiles(const QMimeData* pData)
{
    QStringList sFileList;
    for (const QUrl& url : pData->urls())
        if (url.isLocalFile())
            sFileList.append(url.toLocalFile());
    return sFileList;
}

} // namespace

// The order counts: preferences before modules, modules before actions, fonts and layout, the theme last.
CMainWindow::CMainWindow() : m_pUi(new Ui::CMainWindow)
{
    m_pUi->setupUi(this);
    StartupTimings::Note("widget tree");
    CShaderManager::Instance().CreatePrograms();
    m_styleSheets = LoadStyleSheets(styleSheet());
    CPreferences::Instance().Load(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    m_pItemPanels = std::make_unique<CItemPanels>();
    CSimulationManager::Instance().SetItemPanels(m_pItemPanels.get());
    CreateModules();
    StartupTimings::Note("preferences, modules");
    BuildViewArea();
    BuildActions();
    BuildToolBars();
    StartupTimings::Note("actions, toolbars");
    m_pDocks = std::make_unique<CDockLogic>(*this, *m_pPicks);
    ApplyFontIncrement(this);
    CWidgetManager::Instance().Register(this, CWidgetManager::MAIN_WINDOW);
    m_defaultLayout = TakeLayout(*this);
    setWindowTitle(QString("%1 %2[*]").arg(ApplicationInfo::NAME, ApplicationInfo::VERSION));
    m_bWasMaximised = RestoreWindow(*this, m_defaultLayout);
    CSimulationManager& manager = CSimulationManager::Instance();
    connect(&manager, &CSimulationManager::SignalSimulationNameChanged, this,
            &CMainWindow::SlotSimulationNameChanged);
    connect(&manager, &CSimulationManager::SignalViewSimulationsChanged, this, [this](qlonglong nViewId) {
        if (nViewId == GetActiveViewId())
            SlotActiveSimulationChanged();
    });
    connect(&CSelectableManager::Instance(), &CSelectableManager::SignalSelectionChanged, this,
            &CMainWindow::UpdateActions);
    m_unsavedTimer.setSingleShot(true);
    m_unsavedTimer.setInterval(UNSAVED_DELAY_MS);
    connect(&m_unsavedTimer, &QTimer::timeout, this, &CMainWindow::SlotShowUnsaved);
    connect(&manager, &CSimulationManager::SignalSimulationTimeChanged, &m_unsavedTimer,
            qOverload<>(&QTimer::start));
    SlotActiveSimulationChanged();
    StartupTimings::Note("fonts, layout");
    ApplyTheme();
    StartupTimings::Note("theme");
}

CMainWindow::~CMainWindow()
{
    CSimulationManager::Instance().disconnect(this);
    CSelectableManager::Instance().disconnect(this);
    CSimulationManager::Instance().SetItemPanels(nullptr);
    CWidgetManager::Instance().Unregister(this);
}

void CMainWindow::CreateModules()
{
    CModuleRegistry& registry = CModuleRegistry::Instance();
    registry.CreateModules();
    ForEachModule([this](IModuleInterface& module) { module.AddMainMenus(*this); });
    registry.InitializeAll();
}

void CMainWindow::BuildViewArea()
{
    m_pViewArea = new CViewArea;
    m_pUi->m_pGridLayout->addWidget(m_pViewArea);
    m_pViewCommands = std::make_unique<CViewCommands>(*m_pViewArea);
    m_pTabs = std::make_unique<CSimulationTabs>(m_pUi->m_pSimulationTabList);
    connect(m_pViewArea, &CViewArea::SignalActiveViewChanged, this,
            &CMainWindow::SlotActiveSimulationChanged);
    connect(m_pViewArea, &CViewArea::SignalPopupMenu, this, &CMainWindow::SlotPopupMenu);
    m_pPicks = std::make_unique<CPickSession>();
    connect(m_pViewArea, &CViewArea::SignalModeOut, m_pPicks.get(), &CPickSession::SlotModeOut);
    connect(m_pViewArea, &CViewArea::SignalPointSelected, m_pPicks.get(), &CPickSession::SlotPointSelected);
    connect(m_pPicks.get(), &CPickSession::SignalMode, m_pViewArea, &CViewArea::SetMode);
    connect(m_pPicks.get(), &CPickSession::SignalMode, this, &CMainWindow::SignalMouseMode);
}

void CMainWindow::BuildActions()
{
    m_pActions = new CWindowActions(this);
    m_pFileCommands = std::make_unique<CFileCommands>(*m_pActions, m_pUi->m_pNewSimulationMenu,
                                                      m_pUi->m_pAnalyzeMenu, m_pUi->m_pRecentFilesMenu);
    m_pSaveCommands = std::make_unique<CSaveCommands>(*m_pActions, m_pFileCommands->GetRecentFiles());
    connect(m_pSaveCommands.get(), &CSaveCommands::SignalSaved, this, &CMainWindow::SignalCaseSaved);
    m_pRestartCommands = std::make_unique<CRestartCommands>(*m_pActions);
    m_pEditCommands = std::make_unique<CEditCommands>(*m_pActions);
    m_pSelectionCommands = std::make_unique<CSelectionCommands>(*m_pActions);
    m_pDisplayCommands = std::make_unique<CDisplayCommands>(*m_pActions);
    m_pHelpCommands = std::make_unique<CHelpCommands>(*m_pActions);
    m_pCameraCommands = std::make_unique<CCameraCommands>(*m_pActions, *m_pViewArea, *m_pPicks);
    m_pDialogCommands = std::make_unique<CDialogCommands>(*m_pActions, this);
    m_pActions->Bind(ActionPreferences, this, &CMainWindow::SlotPreferences);
    m_pActions->Bind(ActionScreenshot, this, &CMainWindow::SlotExportScreenshot);
    m_pActions->Bind(ActionExit, this, &CMainWindow::SlotExit);
    m_pActions->Bind(ActionDefaultView, this, &CMainWindow::SlotDefaultView);
    FillMenus(*m_pUi, *m_pActions);
}

void CMainWindow::BuildToolBars()
{
    m_pToolBars = new CWindowToolBars(this, *m_pActions);
    m_pUi->m_pToolbarsMenu->addAction(m_pUi->m_pSimulationItemPanel->toggleViewAction());
    m_pUi->m_pToolbarsMenu->addSeparator();
    CWindowToolBars::ListInMenu(m_pToolBars->GetToolBars(), m_pUi->m_pToolbarsMenu);
    for (CVariableToolBar* const pToolBar : m_pToolBars->GetVariableToolBars())
        pToolBar->SetBrowser([this](VariableKind_e eKind, qint64 nCurrent) {
            return m_pDialogCommands->ChooseVariable(eKind, nCurrent);
        });
    connect(m_pToolBars->GetMirrorToolBar(), &CMirrorToolBar::SignalChanged, this, [this] {
        RefreshDocks(GetActiveViewId(), false, false);
        UpdateActiveViewer(0);
    });
    ForEachModule([this](const IModuleInterface& module) {
        const QVector<QToolBar*> toolBars = module.GetToolBars();
        const QVector<qint32> areas = module.GetToolBarAreas();
        for (int n = 0; n < toolBars.size(); ++n)
            addToolBar(static_cast<Qt::ToolBarArea>(areas.value(n, Qt::TopToolBarArea)), toolBars[n]);
        CWindowToolBars::ListInMenu(toolBars, m_pUi->m_pToolbarsMenu);
    });
}

void CMainWindow::ApplyTheme()
{
    const qint64 nTheme = Get(CPreferences::Instance(), PreferenceKey::THEME);
    if (nTheme < 0 || nTheme >= m_styleSheets.size())
        return;
    ApplyThemeColors(int(nTheme));
    // A sheet that takes the place of another reaches only what the other has been applied to: before its
    // first show a window would keep parts of its own.
    ensurePolished();
    setStyleSheet(m_styleSheets[int(nTheme)]);
    // The arrow of a toolbar that doesn't fit is a picture in the colours of when it was made; this makes it
    // anew.
    for (QToolButton* const pArrow : findChildren<QToolButton*>("qt_toolbar_ext_button")) {
        QEvent anew(QEvent::LayoutDirectionChange);
        QCoreApplication::sendEvent(pArrow, &anew);
    }
}

void CMainWindow::ShowAsStored()
{
    if (!m_bWasMaximised) {
        show();
        return;
    }
    showNormal();
    show();
    setWindowState(windowState() | Qt::WindowMaximized);
}

qint64 CMainWindow::GetActiveViewId() const { return m_pViewArea->GetActiveViewId(); }

ISimulation* CMainWindow::GetActiveSimulation(qint64 nViewId) const
{
    return CSimulationManager::Instance().GetSimulationOfView(nViewId);
}

void CMainWindow::UpdateActions()
{
    m_pViewCommands->GetTwins().Follow(GetActiveViewId());
    const SActionState state = TakeActionState(GetActiveViewId());
    m_pActions->Update(state);
    m_pDisplayCommands->SlotShowSelection();
    m_pToolBars->ShowSelection();
    const qint64 nSimulationId = state.pSimulation ? state.pSimulation->GetId() : -1;
    ForEachModule([&](IModuleInterface& module) { module.UpdateActions(state.nViewId, nSimulationId); });
    m_unsavedTimer.start();
}

void CMainWindow::SlotShowUnsaved()
{
    m_pTabs->ShowUnsaved();
    const ISimulation* const pActive = GetActiveSimulation(GetActiveViewId());
    setWindowModified(pActive && pActive->HasUnsavedEdits());
}

void CMainWindow::RefreshDocks(qint64 nViewId, bool, bool)
{
    // Items that an undo step has changed tell nobody.
    CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nSimulationId : manager.GetSimulationIds(nViewId))
        if (CItemPanel* const pPanel = manager.GetItemPanel(nViewId, nSimulationId))
            pPanel->SlotRefreshAll();
    if (IViewer* const pViewer = GetViewerById(nViewId))
        pViewer->Refresh();
    if (nViewId == GetActiveViewId())
        m_pToolBars
            ->ShowActiveSimulation(); // mirror and sectors are part of a display that was undone or read
    emit SignalRefreshDockWidgets();
}

void CMainWindow::UpdateActiveViewer(qint64)
{
    if (IViewer* const pViewer = GetViewerById(GetActiveViewId()))
        pViewer->Refresh();
}

IViewer* CMainWindow::GetViewer(qint64 nIndex) const
{
    return m_pViewArea->GetViewer(m_pViewArea->GetViewIds().value(static_cast<int>(nIndex), -1));
}

IViewer* CMainWindow::GetViewerById(qint64 nViewId) const { return m_pViewArea->GetViewer(nViewId); }
void CMainWindow::SetStatusText(const QString& sText) { m_pUi->m_pStatusBar->showMessage(sText); }
void CMainWindow::CloseAll() { close(); }

void CMainWindow::BlockUpdates(qint64 nSimulationId, bool bBlock)
{
    for (const qint64 nViewId : CSimulationManager::Instance().GetViewIds(nSimulationId))
        if (IViewer* const pViewer = GetViewerById(nViewId))
            pViewer->GetWidget()->setUpdatesEnabled(!bBlock);
    if (bBlock)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

QImage CMainWindow::captureImage(const SCapture& capture)
{
    return WindowCapture::Take(*this, *m_pViewArea, capture);
}

void CMainWindow::SlotExportScreenshot()
{
    CScreenshotDialog({size(), WindowCapture::ViewSize(*m_pViewArea)}, m_pViewArea->GetExpandedId() != -1,
                      this)
        .exec();
}

void CMainWindow::AddMenu(QMenu* pMenu)
{
    m_pUi->menubar->insertMenu(m_pUi->m_pHelpMenu->menuAction(), pMenu);
}

QMenu* CMainWindow::GetImportMenu() { return m_pUi->m_pImportMenu; }
QMenu* CMainWindow::GetExportMenu() { return m_pUi->m_pExportMenu; }

void CMainWindow::SlotOpenSimulation(const QString& sFileName)
{
    m_pFileCommands->SlotOpenSimulation(sFileName);
}

void CMainWindow::SlotActiveSimulationChanged()
{
    const qint64 nViewId = GetActiveViewId();
    m_pTabs->Fill(nViewId);
    ShowModuleWidgets();
    ShowItemPanel();
    m_pToolBars->ShowActiveSimulation();
    m_pCameraCommands->ShowActiveView();
    emit SignalActiveSimulationChanged();
    emit SignalRefreshDockWidgets();
    UpdateActions();
}

/** Those of the module whose case is on top of the active view. */
void CMainWindow::ShowModuleWidgets()
{
    const QSignalBlocker oneAtATime(m_pDocks.get()); // docks that a module shows don't close each other
    ForEachModule([nViewId = GetActiveViewId()](IModuleInterface& module) {
        module.HideModuleWidgets();
        module.ShowModuleWidgets(nViewId);
    });
}

void CMainWindow::ShowItemPanel()
{
    const ISimulation* const pSimulation = GetActiveSimulation(GetActiveViewId());
    CItemPanel* const pPanel =
        pSimulation ? CSimulationManager::Instance().GetItemPanel(GetActiveViewId(), pSimulation->GetId())
                    : nullptr;
    QStackedWidget* const pStack = m_pUi->m_pPanelStack;
    if (!pPanel) {
        pStack->setCurrentWidget(m_pUi->m_pEmptyItemPanel);
        return;
    }
    if (pStack->indexOf(pPanel) < 0) {
        pStack->addWidget(pPanel);
        ApplyFontIncrement(pPanel);
        connect(pPanel, &CItemPanel::SignalPopupMenu, this,
                [this, pPanel] { ShowPopupMenu(pPanel->GetPopupPosition(), pPanel->GetViewActions()); });
    }
    pStack->setCurrentWidget(pPanel);
}

void CMainWindow::SlotSimulationNameChanged(qlonglong)
{
    m_pTabs->Fill(GetActiveViewId());
    UpdateActions();
}

void CMainWindow::SlotPreferences()
{
    CPreferencesDialog dialog(this);
    connect(&dialog, &CPreferencesDialog::SignalPreferencesChanged, this,
            &CMainWindow::SlotUpdatePreferences);
    dialog.exec();
}

void CMainWindow::SlotUpdatePreferences()
{
    ApplyTheme();
    m_pCameraCommands->ShowPreferences();
    CShaderManager::Instance().InvalidateGlobalUniforms();
    ApplyFontIncrement(this);
    for (CItemPanel* const pPanel : findChildren<CItemPanel*>())
        pPanel->ApplyFonts();
    m_pViewArea->SetHandleWidth(
        static_cast<int>(Get(CPreferences::Instance(), PreferenceKey::SPLITTER_WIDTH)));
    m_pViewArea->RefreshAll();
}

void CMainWindow::SlotDefaultView()
{
    ApplyLayout(*this, m_defaultLayout);
    ShowModuleWidgets(); // whose case there is, no layout knows
}

void CMainWindow::SlotExit() { close(); }

void CMainWindow::SlotPopupMenu() { ShowPopupMenu(QCursor::pos(), {}); }

/** The module's entries, then further ones of the place where the menu opens. */
void CMainWindow::ShowPopupMenu(const QPoint& position, const QList<QAction*>& further)
{
    const ISimulation* const pSimulation = GetActiveSimulation(GetActiveViewId());
    IModuleInterface* const pModule =
        pSimulation ? CModuleRegistry::Instance().FindById(pSimulation->GetModuleId()) : nullptr;
    if (!pModule)
        return;
    QMenu menu;
    pModule->FillPopupMenu(&menu, GetActiveViewId());
    menu.addSeparator();
    menu.addActions(further);
    if (!menu.isEmpty())
        menu.exec(position);
}

void CMainWindow::on_m_pSimulationTabList_currentChanged(int nIndex)
{
    if (m_pTabs) // not while the window is built
        m_pTabs->Choose(nIndex);
}

void CMainWindow::on_m_pSimulationTabList_tabCloseRequested(int nIndex) { m_pTabs->Close(nIndex); }

void CMainWindow::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!LocalFiles(pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void CMainWindow::dropEvent(QDropEvent* pEvent)
{
    pEvent->acceptProposedAction();
    m_pFileCommands->OpenFiles(LocalFiles(pEvent->mimeData()));
}

void CMainWindow::closeEvent(QCloseEvent* pEvent)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    if (!manager.CloseSimulations(-1)) {
        pEvent->ignore();
        return;
    }
    manager.RemoveAllViews();
    manager.CopyDisplayFiles();
    StoreWindow(*this);
    pEvent->accept();
}
