#include "analysis/widgets/analyzeitemviewer.h"

#include "frame/themeicon.h"
#include "ui_analyzeitemviewer.h"
#include "view/ui/viewheadline.h"

CAnalyzeItemViewer::CAnalyzeItemViewer(qint64 nViewId, QWidget* pParent)
    : QWidget(pParent), m_nViewId(nViewId), m_pUi(new Ui::CAnalyzeItemViewer)
{
    m_pUi->setupUi(this);
    m_pUi->m_pFrameLayout->addStretch(1);
    m_pUi->m_pViewName->setText("Analyze");
    m_pUi->m_pSplitVerticalB->setIcon(ThemeIcon(":/Icons/vertical.ico"));
    m_pUi->m_pSplitHorizontalB->setIcon(ThemeIcon(":/Icons/horizontal.ico"));
    m_pUi->m_pCloseViewB->setIcon(ThemeIcon(":/Icons/close.ico"));
    ViewHeadline::SetSplitMenu(m_pUi->m_pSplitHorizontalB, {m_pUi->actionHEmpty, m_pUi->actionHPlotter});
    ViewHeadline::SetSplitMenu(m_pUi->m_pSplitVerticalB, {m_pUi->actionVEmpty, m_pUi->actionVPlotter});
    m_pUi->actionHPlotter->setEnabled(false);
    m_pUi->actionVPlotter->setEnabled(false);
    SetActive(false);
    SetExpanded(false);
}

CAnalyzeItemViewer::~CAnalyzeItemViewer() = default;

void CAnalyzeItemViewer::SetActive(bool bActive)
{
    ViewHeadline::SetActive(m_pUi->m_pHeadlineFrame, m_pUi->m_pActiveWindowMarker, bActive);
}

void CAnalyzeItemViewer::SetExpanded(bool bExpanded)
{
    ViewHeadline::SetExpanded(m_pUi->m_pExpandViewB, bExpanded);
}

void CAnalyzeItemViewer::SetExpandable(bool bExpandable) { m_pUi->m_pExpandViewB->setEnabled(bExpandable); }
void CAnalyzeItemViewer::mousePressEvent(QMouseEvent*) { emit SignalActivated(m_nViewId); }
void CAnalyzeItemViewer::on_m_pCloseViewB_clicked() { emit SignalClose(m_nViewId); }

void CAnalyzeItemViewer::on_m_pExpandViewB_clicked()
{
    emit SignalExpand(m_nViewId, m_pUi->m_pExpandViewB->isChecked());
}

void CAnalyzeItemViewer::on_actionHEmpty_triggered()
{
    emit SignalSplit(m_nViewId, Qt::Horizontal, SplitEmpty);
}
void CAnalyzeItemViewer::on_actionVEmpty_triggered()
{
    emit SignalSplit(m_nViewId, Qt::Vertical, SplitEmpty);
}
