#pragma once

#include "frame/imainwindow.h"
#include "frame/window/windowgeometry.h"

#include <QMainWindow>
#include <QStringList>

/**
 * The one top-level window of an interactive run. It knows cases only through IModuleInterface and
 * ISimulation; the rest of the program reaches it through CWidgetManager.
 */
class CMainWindow : public QMainWindow, public IMainWindow
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
    void SetStatusText(const QString& sText) override;
    void RunInTerminal() override;
    void CloseAll() override;
    void BlockUpdates(qint64 nSimulationId, bool bBlock) override;

signals:
    void SignalRefreshDockWidgets();

public slots:
    /** Opens a simulation file with the module that its first field names; nothing if there is none. */
    void SlotOpenSimulation(const QString& sFileName);
    void SlotSimulationNameChanged(qlonglong nSimulationId);

protected:
    void closeEvent(QCloseEvent* pEvent) override;

private:
    void CreateModules();
    void ApplyTheme();

    QStringList m_styleSheets; // 4, by the preference "GUI.Theme"
    SWindowLayout m_defaultLayout;
    bool m_bWasMaximised = false;
};
