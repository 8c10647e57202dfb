#pragma once

#include "scene/iselectable.h"
#include "scene/pickedpoint.h"
#include "view/camera/cameraoperator.h"
#include "view/camera/icameraview.h"
#include "view/iviewer.h"

#include <QWidget>

#include <memory>

class COpenGLDrawer;

namespace Ui {
class COglViewer;
}

/**
 * A three-dimensional view: a head line (name, active marker, link, split, maximise, close) around the
 * canvas in which the cases of the view are drawn. A view index in its signals is its id.
 */
class COglViewer : public QWidget, public IViewer, public ICameraView
{
    Q_OBJECT

public:
    explicit COglViewer(qint64 nViewId, QWidget* pParent = nullptr);
    ~COglViewer() override;

    QWidget* GetWidget() override { return this; }
    qint64 GetViewId() const override { return m_nViewId; }
    void SetActive(bool bActive) override;
    void SetExpanded(bool bExpanded) override;
    void SetExpandable(bool bExpandable) override;
    void Refresh() override;

    /** What the head line calls the view. */
    void SetName(const QString& sName);
    /** Whether its camera follows and leads those of all other linked views. */
    bool IsLinked() const;

    SCamera GetCamera() const override;
    void SetCamera(const SCamera& camera, int nFit = 0) override;
    COpenGLDrawer& GetDrawer() { return *m_pDrawer; }

signals:
    void SignalSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit, qlonglong nType);
    void SignalSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit);
    void SignalExpand(qlonglong nViewIndex, bool bExpand);
    void SignalActivated(qlonglong nViewIndex);
    void SignalClose(qlonglong nViewIndex);
    /** A linked view's camera has changed: this one does the same. */
    void SignalCameraChangeIn(CameraOperator_e eOperator, SCameraOperator camera);
    void SignalCameraChangeOut(qlonglong nViewIndex, CameraOperator_e eOperator, SCameraOperator camera);
    void SignalModeIn(OglMouseMode_e eMode);
    void SignalModeOut(OglMouseMode_e eMode);
    void SignalPopupMenu();
    void SignalPointSelected(SPickedPoint point, ISelectable* pSelectable);

public slots:
    void SlotCameraChangeOut(CameraOperator_e eOperator, SCameraOperator camera);
    void SlotActivated();

private slots:
    void on_m_pLinkViewB_clicked();
    void on_m_pExpandViewB_clicked();
    void on_m_pCloseViewB_clicked();
    void on_actionHEmpty_triggered();
    void on_actionVEmpty_triggered();
    void on_actionHInstance_triggered();
    void on_actionVInstance_triggered();
    void on_actionHCopy_triggered();
    void on_actionVCopy_triggered();

private:
    void ShowLink();

    const qint64 m_nViewId;
    const std::unique_ptr<Ui::COglViewer> m_pUi;
    COpenGLDrawer* m_pDrawer;
};
