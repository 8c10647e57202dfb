#pragma once

#include "frame/imainmenus.h"
#include "frame/widgetmanager.h"
#include "simulation/simulationmanager.h"
#include "view/camera/icameraview.h"
#include "view/iviewer.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

/** A view that only has a camera. */
class CCameraView : public IViewer, public ICameraView
{
public:
    QWidget* GetWidget() override { return nullptr; }
    qint64 GetViewId() const override { return 1; }
    void SetActive(bool) override {}
    void SetExpanded(bool) override {}
    void SetExpandable(bool) override {}
    void Refresh() override {}
    SCamera GetCamera() const override { return m_camera; }
    void SetCamera(const SCamera& camera, int) override { m_camera = camera; }

    SCamera m_camera;
};

/** A window with the menus that modules fill and one view, of id 1. */
class CCaseWindow : public QMainWindow, public IMainWindow, public IMainMenus
{
public:
    CCaseWindow() { CWidgetManager::Instance().Register(this, CWidgetManager::MAIN_WINDOW); }
    ~CCaseWindow() override { CWidgetManager::Instance().Unregister(this); }
    qint64 GetActiveViewId() const override { return m_nActiveViewId; }
    ISimulation* GetActiveSimulation(qint64 nViewId) const override
    {
        return CSimulationManager::Instance().GetSimulationOfView(nViewId);
    }
    void UpdateActions() override { ++m_nActionUpdates; }
    void RefreshDocks(qint64 nViewId, bool, bool) override { m_refreshed.append(nViewId); }
    void UpdateActiveViewer(qint64) override {}
    IViewer* GetViewer(qint64) const override { return nullptr; }
    IViewer* GetViewerById(qint64 nViewId) const override { return nViewId == 1 ? &m_view : nullptr; }
    void SetStatusText(const QString& sText) override { m_sStatus = sText; }
    void RunInTerminal() override {}
    void CloseAll() override {}
    QImage captureImage(const SCapture&) override { return {}; }
    void BlockUpdates(qint64, bool bBlock) override { m_nBlocked += bBlock ? 1 : -1; }
    void AddMenu(QMenu* pMenu) override { menuBar()->addMenu(pMenu); }
    QMenu* GetImportMenu() override { return &m_importMenu; }
    QMenu* GetExportMenu() override { return &m_exportMenu; }

    mutable CCameraView m_view;
    QMenu m_importMenu, m_exportMenu;
    qint64 m_nActiveViewId = 1;
    QString m_sStatus;
    int m_nActionUpdates = 0;
    QVector<qint64> m_refreshed;
    int m_nBlocked = 0;
};
