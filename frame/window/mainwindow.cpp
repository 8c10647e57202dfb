#include "frame/window/mainwindow.h"

#include "frame/applicationinfo.h"
#include "frame/bytestream.h"
#include "frame/moduleregistry.h"
#include "frame/preferencekeys.h"
#include "frame/preferences.h"
#include "frame/ui/fontincrement.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "frame/window/stylesheets.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QCloseEvent>
#include <QFile>
#include <QMenuBar>
#include <QStatusBar>

namespace {
constexpr qint64 FIRST_VIEW = 1;
}

// The order counts: preferences before modules, modules before fonts and layout, the theme last.
CMainWindow::CMainWindow() : m_styleSheets(LoadStyleSheets(styleSheet()))
{
    setObjectName("CMainWindow");
    setCentralWidget(new QWidget(this));
    statusBar();
    CPreferences::Instance().Load(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    CreateModules();
    ApplyFontIncrement(this);
    CWidgetManager::Instance().Register(this, CWidgetManager::MAIN_WINDOW);
    m_defaultLayout = TakeLayout(*this);
    setWindowTitle(QString("%1 %2").arg(ApplicationInfo::NAME, ApplicationInfo::VERSION));
    m_bWasMaximised = RestoreWindow(*this, m_defaultLayout);
    connect(&CSimulationManager::Instance(), &CSimulationManager::SignalSimulationNameChanged, this,
            &CMainWindow::SlotSimulationNameChanged);
    UpdateActions();
    ApplyTheme();
}

CMainWindow::~CMainWindow() { CWidgetManager::Instance().Unregister(this); }

void CMainWindow::CreateModules()
{
    CModuleRegistry& registry = CModuleRegistry::Instance();
    registry.CreateModules();
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId)
        if (IModuleInterface* const pModule = registry.FindById(nId))
            pModule->AddMainMenus(this);
    registry.InitializeAll();
}

void CMainWindow::ApplyTheme()
{
    const qint64 nTheme = Get(CPreferences::Instance(), PreferenceKey::THEME);
    if (nTheme < 0 || nTheme >= m_styleSheets.size())
        return;
    ApplyThemeColors(int(nTheme));
    setStyleSheet(m_styleSheets[int(nTheme)]);
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

qint64 CMainWindow::GetActiveViewId() const { return FIRST_VIEW; }

ISimulation* CMainWindow::GetActiveSimulation(qint64 nViewId) const
{
    return CSimulationManager::Instance().GetSimulationOfView(nViewId);
}

void CMainWindow::UpdateActions()
{
    const ISimulation* const pSimulation = GetActiveSimulation(GetActiveViewId());
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId)
        if (IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId))
            pModule->UpdateActions(GetActiveViewId(), pSimulation ? pSimulation->GetId() : -1);
}

void CMainWindow::RefreshDocks(qint64, bool, bool) { emit SignalRefreshDockWidgets(); }
void CMainWindow::UpdateActiveViewer(qint64) { centralWidget()->update(); }
void CMainWindow::SetStatusText(const QString& sText) { statusBar()->showMessage(sText); }
void CMainWindow::RunInTerminal() {}
void CMainWindow::CloseAll() { close(); }
void CMainWindow::BlockUpdates(qint64, bool bBlock) { centralWidget()->setUpdatesEnabled(!bBlock); }

void CMainWindow::SlotOpenSimulation(const QString& sFileName)
{
    QFile file(sFileName);
    if (!file.open(QIODevice::ReadOnly)) {
        UserPrompt::Tell(PromptCritical, "Open Simulation", "Failed to open the selected file");
        return;
    }
    constexpr qint64 LONGEST_NAME = 256; // the module's name is all that is read here [bytes]
    const QByteArray head = file.read(LONGEST_NAME);
    file.close();
    CByteReader reader(head);
    QString sModule;
    if (!reader.Read(sModule))
        return;
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (!pModule || !pModule->CanOpen() || pModule->GetName() != sModule)
            continue;
        pModule->Open(sFileName, -1);
        return;
    }
}

void CMainWindow::SlotSimulationNameChanged(qlonglong) { UpdateActions(); }

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
