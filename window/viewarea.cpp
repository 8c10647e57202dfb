#include "window/viewarea.h"

#include "analysis/widgets/analyzeitemviewer.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"

#include <QSplitter>
#include <QVBoxLayout>

namespace {

/** The other of the two children of an inner node. */
QSplitter* SiblingOf(QSplitter* pNode)
{
    const auto* const pParent = static_cast<QSplitter*>(pNode->parentWidget());
    return static_cast<QSplitter*>(pParent->widget(1 - pParent->indexOf(pNode)));
}

void DivideEvenly(QSplitter* pSplitter)
{
    const int nLarge = 1 << 16; // the splitter scales the sizes to what it has
    pSplitter->setSizes({nLarge, nLarge});
}

/** Calls the function with every node below this one; what is inside the views isn't a node. */
template <class Function> void ForEachNode(const QSplitter* pNode, const Function& function)
{
    for (int n = 0; n < pNode->count(); ++n)
        if (auto* const pChild = qobject_cast<QSplitter*>(pNode->widget(n))) {
            function(pChild);
            ForEachNode(pChild, function);
        }
}

/** Gives all children of the one to the other, in order. */
void MoveChildren(QSplitter* pFrom, QSplitter* pTo)
{
    while (pFrom->count() > 0)
        pTo->addWidget(pFrom->widget(0));
}

} // namespace

CViewArea::CViewArea(QWidget* pParent)
    : QWidget(pParent), m_nHandleWidth(int(Get(CPreferences::Instance(), PreferenceKey::SPLITTER_WIDTH)))
{
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    m_pRoot = MakeSplitter(Qt::Horizontal);
    pLayout->addWidget(m_pRoot);
    SetActive(AddSlot(m_pRoot));
}

CViewArea::~CViewArea() = default;

QSplitter* CViewArea::MakeSplitter(Qt::Orientation eOrientation) const
{
    auto* const pSplitter = new QSplitter(eOrientation);
    pSplitter->setHandleWidth(m_nHandleWidth);
    pSplitter->setOpaqueResize(false);
    pSplitter->setChildrenCollapsible(false);
    return pSplitter;
}

/** Makes the pair of views of a new slot. */
qint64 CViewArea::AddSlot(QSplitter* pSplitter)
{
    const qint64 nId = m_nNextId++;
    auto* const pViewer = new COglViewer(nId);
    auto* const pAnalyzeViewer = new CAnalyzeItemViewer(nId);
    pAnalyzeViewer->hide();
    pSplitter->addWidget(pViewer);
    pSplitter->addWidget(pAnalyzeViewer);
    m_slots[nId] = {pSplitter, pViewer, pAnalyzeViewer, false};
    const auto connectViewer = [this](auto* pView) {
        using Viewer = std::remove_pointer_t<decltype(pView)>;
        connect(pView, &Viewer::SignalActivated, this, &CViewArea::SetActive);
        connect(pView, qOverload<qlonglong, Qt::Orientation, ViewSplit_e>(&Viewer::SignalSplit), this,
                &CViewArea::SignalSplit);
        connect(pView, &Viewer::SignalExpand, this, &CViewArea::SignalExpand);
        connect(pView, &Viewer::SignalClose, this, &CViewArea::SignalClose);
    };
    connectViewer(pViewer);
    connectViewer(pAnalyzeViewer);
    connect(pViewer, &COglViewer::SignalPopupMenu, this, &CViewArea::SignalPopupMenu);
    connect(pViewer, &COglViewer::SignalCameraChangeOut, this, &CViewArea::SlotCameraChange);
    emit pViewer->SignalModeIn(m_eMode);
    connect(pViewer, &COglViewer::SignalModeOut, this, &CViewArea::SignalModeOut);
    connect(pViewer, &COglViewer::SignalPointSelected, this,
            [this, nId](const SPickedPoint& point, ISelectable* pSelectable) {
                emit SignalPointSelected(nId, point, pSelectable);
            });
    ShowExpandable();
    return nId;
}

void CViewArea::ShowExpandable()
{
    for (const auto& [nId, slot] : m_slots) {
        slot.pViewer->SetExpandable(m_slots.size() > 1);
        slot.pAnalyzeViewer->SetExpandable(m_slots.size() > 1);
    }
}

const CViewArea::SSlot* CViewArea::FindSlot(qint64 nViewId) const
{
    const auto slot = m_slots.find(nViewId);
    return slot == m_slots.end() ? nullptr : &slot->second;
}

QVector<qint64> CViewArea::GetViewIds() const
{
    QVector<qint64> ids;
    for (const auto& [nId, slot] : m_slots)
        ids.append(nId);
    return ids;
}

IViewer* CViewArea::GetViewer(qint64 nViewId) const
{
    const SSlot* const pSlot = FindSlot(nViewId);
    if (!pSlot)
        return nullptr;
    return pSlot->bShowsAnalyze ? static_cast<IViewer*>(pSlot->pAnalyzeViewer) : pSlot->pViewer;
}

COglViewer* CViewArea::GetOglViewer(qint64 nViewId) const
{
    const SSlot* const pSlot = FindSlot(nViewId);
    return pSlot ? pSlot->pViewer : nullptr;
}

CAnalyzeItemViewer* CViewArea::GetAnalyzeViewer(qint64 nViewId) const
{
    const SSlot* const pSlot = FindSlot(nViewId);
    return pSlot ? pSlot->pAnalyzeViewer : nullptr;
}

void CViewArea::SetActive(qint64 nViewId)
{
    if (nViewId == m_nActiveId || !FindSlot(nViewId))
        return;
    m_nActiveId = nViewId;
    for (const auto& [nId, slot] : m_slots) {
        slot.pViewer->SetActive(nId == nViewId);
        slot.pAnalyzeViewer->SetActive(nId == nViewId);
    }
    emit SignalActiveViewChanged(nViewId);
}

void CViewArea::SetMode(OglMouseMode_e eMode)
{
    m_eMode = eMode;
    for (const auto& [nId, slot] : m_slots)
        emit slot.pViewer->SignalModeIn(eMode);
}

qint64 CViewArea::Split(qint64 nViewId, Qt::Orientation eOrientation)
{
    const auto found = m_slots.find(nViewId);
    if (found == m_slots.end())
        return -1;
    SetExpanded(m_nExpandedId, false);
    QSplitter* const pNode = found->second.pSplitter;
    QSplitter* const pOld = MakeSplitter(Qt::Horizontal);
    QSplitter* const pNew = MakeSplitter(Qt::Horizontal);
    MoveChildren(pNode, pOld);
    found->second.pSplitter = pOld;
    const qint64 nNewId = AddSlot(pNew);
    pNode->setOrientation(eOrientation);
    pNode->addWidget(pOld);
    pNode->addWidget(pNew);
    DivideEvenly(pNode);
    m_slots[nNewId].pViewer->SetCamera(found->second.pViewer->GetCamera());
    return nNewId;
}

bool CViewArea::Close(qint64 nViewId)
{
    const SSlot* const pSlot = FindSlot(nViewId);
    if (!pSlot || m_slots.size() == 1)
        return false;
    SetExpanded(m_nExpandedId, false);
    QSplitter* const pClosed = pSlot->pSplitter;
    QSplitter* const pSibling = SiblingOf(pClosed);
    auto* const pParent = static_cast<QSplitter*>(pClosed->parentWidget());
    m_slots.erase(nViewId);
    pClosed->hide();
    pClosed->setParent(nullptr);
    pClosed->deleteLater(); // the button that asked for it is inside
    const QList<int> sizes = pSibling->sizes();
    pParent->setOrientation(pSibling->orientation());
    MoveChildren(pSibling, pParent);
    pParent->setSizes(sizes);
    for (auto& [nId, slot] : m_slots)
        if (slot.pSplitter == pSibling)
            slot.pSplitter = pParent;
    delete pSibling;
    ShowExpandable();
    if (nViewId == m_nActiveId)
        SetActive(NextAfter(nViewId));
    return true;
}

/** The view with the next higher id, else the one with the highest. */
qint64 CViewArea::NextAfter(qint64 nViewId) const
{
    const auto next = m_slots.upper_bound(nViewId);
    return next == m_slots.end() ? m_slots.rbegin()->first : next->first;
}

void CViewArea::SetExpanded(qint64 nViewId, bool bExpanded)
{
    const SSlot* const pSlot = FindSlot(nViewId);
    if (!pSlot || (bExpanded && m_slots.size() == 1))
        return;
    m_nExpandedId = bExpanded ? nViewId : -1;
    for (const auto& [nId, slot] : m_slots) {
        slot.pViewer->SetExpanded(nId == m_nExpandedId);
        slot.pAnalyzeViewer->SetExpanded(nId == m_nExpandedId);
    }
    ForEachNode(m_pRoot, [](QSplitter* pNode) { pNode->show(); });
    if (!bExpanded)
        return;
    for (QSplitter* pNode = pSlot->pSplitter; pNode != m_pRoot;
         pNode = static_cast<QSplitter*>(pNode->parentWidget()))
        SiblingOf(pNode)->hide();
    SetActive(nViewId);
}

void CViewArea::SetHandleWidth(int nPixels)
{
    m_nHandleWidth = nPixels;
    m_pRoot->setHandleWidth(nPixels);
    ForEachNode(m_pRoot, [nPixels](QSplitter* pNode) { pNode->setHandleWidth(nPixels); });
}

void CViewArea::RefreshAll()
{
    for (const auto& [nId, slot] : m_slots)
        GetViewer(nId)->Refresh();
}

void CViewArea::SlotCameraChange(qlonglong nViewIndex, CameraOperator_e eOperator, SCameraOperator camera)
{
    const SSlot* const pSender = FindSlot(nViewIndex);
    if (!pSender || !pSender->pViewer->IsLinked())
        return;
    for (const auto& [nId, slot] : m_slots)
        if (nId != nViewIndex && slot.pViewer->IsLinked())
            emit slot.pViewer->SignalCameraChangeIn(eOperator, camera);
}
