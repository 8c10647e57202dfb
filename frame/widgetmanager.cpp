#include "frame/widgetmanager.h"

CWidgetManager& CWidgetManager::Instance()
{
    static CWidgetManager* const pManager = new CWidgetManager; // never destroyed, see CMessageSink
    return *pManager;
}

void CWidgetManager::Add(QWidget* pWidget, qint32 nRole, IMainWindow* pWindow)
{
    if (m_widgets.contains(pWidget))
        return;
    m_widgets.append(pWidget);
    m_roles.append(nRole);
    m_windows.append(pWindow);
}

void CWidgetManager::Unregister(const QWidget* pWidget)
{
    const int nIndex = m_widgets.indexOf(const_cast<QWidget*>(pWidget));
    if (nIndex < 0)
        return;
    m_widgets.remove(nIndex);
    m_roles.remove(nIndex);
    m_windows.remove(nIndex);
}

QWidget* CWidgetManager::GetWidget(qint32 nRole) const
{
    const int nIndex = m_roles.indexOf(nRole);
    return nIndex < 0 ? nullptr : m_widgets[nIndex];
}

IMainWindow* CWidgetManager::MainWindow() const
{
    const int nIndex = m_roles.indexOf(MAIN_WINDOW);
    return nIndex < 0 ? nullptr : m_windows[nIndex];
}

qint64 CWidgetManager::GetActiveViewId() const
{
    const IMainWindow* const pWindow = MainWindow();
    return pWindow ? pWindow->GetActiveViewId() : -1;
}

ISimulation* CWidgetManager::GetActiveSimulation() const
{
    const IMainWindow* const pWindow = MainWindow();
    return pWindow ? pWindow->GetActiveSimulation(pWindow->GetActiveViewId()) : nullptr;
}

void CWidgetManager::UpdateActions()
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->UpdateActions();
}

void CWidgetManager::RefreshDocks(qint64 nViewId, bool bForce, bool bAll)
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->RefreshDocks(nViewId, bForce, bAll);
}

void CWidgetManager::UpdateActiveViewer(qint64 nFlags)
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->UpdateActiveViewer(nFlags);
}

IViewer* CWidgetManager::GetViewer(qint64 nIndex) const
{
    const IMainWindow* const pWindow = MainWindow();
    return pWindow ? pWindow->GetViewer(nIndex) : nullptr;
}

IViewer* CWidgetManager::GetViewerById(qint64 nViewId) const
{
    const IMainWindow* const pWindow = MainWindow();
    return pWindow ? pWindow->GetViewerById(nViewId) : nullptr;
}

void CWidgetManager::SetStatusText(const QString& sText)
{
    m_sStatusText = sText;
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->SetStatusText(sText);
}

void CWidgetManager::ForgetStatusText(const QString& sText)
{
    if (!sText.isEmpty() && sText == m_sStatusText)
        SetStatusText({});
}

void CWidgetManager::RunInTerminal()
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->RunInTerminal();
}

void CWidgetManager::CloseAll()
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->CloseAll();
}

void CWidgetManager::BlockUpdates(qint64 nSimulationId, bool bBlock)
{
    if (IMainWindow* const pWindow = MainWindow())
        pWindow->BlockUpdates(nSimulationId, bBlock);
}

QImage CWidgetManager::CaptureImage(const SCapture& capture)
{
    IMainWindow* const pWindow = MainWindow();
    return pWindow ? pWindow->captureImage(capture) : QImage();
}
