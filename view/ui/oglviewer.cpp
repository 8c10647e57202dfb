#include "view/ui/oglviewer.h"

#include "frame/themeicon.h"
#include "ui_oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "view/ui/viewheadline.h"

COglViewer::COglViewer(qint64 nViewId, QWidget* pParent)
    : QWidget(pParent), m_nViewId(nViewId), m_pUi(new Ui::COglViewer), m_pDrawer(new COpenGLDrawer(nViewId))
{
    m_pUi->setupUi(this);
    m_pUi->m_pFrameLayout->addWidget(m_pDrawer, 1);
    setFocusProxy(m_pDrawer);
    m_pUi->m_pSplitVerticalB->setIcon(ThemeIcon(":/Icons/vertical.ico"));
    m_pUi->m_pSplitHorizontalB->setIcon(ThemeIcon(":/Icons/horizontal.ico"));
    m_pUi->m_pCloseViewB->setIcon(ThemeIcon(":/Icons/close.ico"));
    ViewHeadline::SetSplitMenu(m_pUi->m_pSplitHorizontalB, {m_pUi->actionHEmpty, m_pUi->actionHInstance,
                                                            m_pUi->actionHCopy, m_pUi->actionHPlotter});
    ViewHeadline::SetSplitMenu(m_pUi->m_pSplitVerticalB, {m_pUi->actionVEmpty, m_pUi->actionVInstance,
                                                          m_pUi->actionVCopy, m_pUi->actionVPlotter});
    // There are no analysis items to plot yet.
    m_pUi->actionHPlotter->setEnabled(false);
    m_pUi->actionVPlotter->setEnabled(false);
    SetName(QString("View %1").arg(nViewId));
    SetActive(false);
    SetExpanded(false);
    ShowLink();
    connect(m_pDrawer, &COpenGLDrawer::SignalActivated, this, &COglViewer::SlotActivated);
    connect(m_pDrawer, &COpenGLDrawer::SignalPopupMenu, this, &COglViewer::SignalPopupMenu);
    connect(m_pDrawer, &COpenGLDrawer::SignalPointSelected, this, &COglViewer::SignalPointSelected);
    connect(m_pDrawer, &COpenGLDrawer::SignalMode, this, &COglViewer::SignalModeOut);
    connect(m_pDrawer, &COpenGLDrawer::SignalCameraChange, this, &COglViewer::SlotCameraChangeOut);
    connect(this, &COglViewer::SignalModeIn, m_pDrawer, &COpenGLDrawer::SlotMode);
    connect(this, &COglViewer::SignalCameraChangeIn, m_pDrawer, &COpenGLDrawer::SlotCameraChange);
}

COglViewer::~COglViewer() = default;

void COglViewer::SetActive(bool bActive)
{
    ViewHeadline::SetActive(m_pUi->m_pHeadlineFrame, m_pUi->m_pActiveWindowMarker, bActive);
    m_pDrawer->SetActive(bActive);
}

void COglViewer::SetExpanded(bool bExpanded) { ViewHeadline::SetExpanded(m_pUi->m_pExpandViewB, bExpanded); }

void COglViewer::SetExpandable(bool bExpandable) { m_pUi->m_pExpandViewB->setEnabled(bExpandable); }
void COglViewer::Refresh() { m_pDrawer->UpdateAll(); }
SCamera COglViewer::GetCamera() const { return m_pDrawer->GetCamera(); }
void COglViewer::SetCamera(const SCamera& camera, int nFit) { m_pDrawer->SetCamera(camera, nFit); }
void COglViewer::SetName(const QString& sName) { m_pUi->m_pViewName->setText(sName); }
bool COglViewer::IsLinked() const { return m_pUi->m_pLinkViewB->isChecked(); }

void COglViewer::ShowLink()
{
    m_pUi->m_pLinkViewB->setIcon(ThemeIcon(IsLinked() ? ":/Icons/link.ico" : ":/Icons/unlink.ico"));
}

void COglViewer::SlotCameraChangeOut(CameraOperator_e eOperator, SCameraOperator camera)
{
    emit SignalCameraChangeOut(m_nViewId, eOperator, camera);
}

void COglViewer::SlotActivated() { emit SignalActivated(m_nViewId); }
void COglViewer::on_m_pLinkViewB_clicked() { ShowLink(); }
void COglViewer::on_m_pCloseViewB_clicked() { emit SignalClose(m_nViewId); }

void COglViewer::on_m_pExpandViewB_clicked()
{
    emit SignalExpand(m_nViewId, m_pUi->m_pExpandViewB->isChecked());
}

void COglViewer::on_actionHEmpty_triggered() { emit SignalSplit(m_nViewId, Qt::Horizontal, SplitEmpty); }
void COglViewer::on_actionVEmpty_triggered() { emit SignalSplit(m_nViewId, Qt::Vertical, SplitEmpty); }
void COglViewer::on_actionHInstance_triggered()
{
    emit SignalSplit(m_nViewId, Qt::Horizontal, SplitInstance);
}
void COglViewer::on_actionVInstance_triggered() { emit SignalSplit(m_nViewId, Qt::Vertical, SplitInstance); }
void COglViewer::on_actionHCopy_triggered() { emit SignalSplit(m_nViewId, Qt::Horizontal, SplitCopy); }
void COglViewer::on_actionVCopy_triggered() { emit SignalSplit(m_nViewId, Qt::Vertical, SplitCopy); }
