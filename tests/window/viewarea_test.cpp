#include "window/viewarea.h"

#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"
#include "view/gl/shadermanager.h"
#include "view/ui/oglviewer.h"
#include "window/commands/viewcommands.h"

#include <QSplitter>
#include <QToolButton>

namespace {

/** A view area with its commands, on show. */
class ViewArea : public SimulationFixture
{
protected:
    ViewArea()
    {
        CShaderManager::Instance().CreatePrograms(); // or views on a display end the process
        m_area.resize(800, 600);
        m_area.show();
    }
    ~ViewArea() override { CShaderManager::Instance().DeletePrograms(); }

    /** The tree as text: "H[1 V[2 3]]". */
    QString Tree() const { return TreeOf(m_area.findChild<QSplitter*>()); }
    static QString TreeOf(const QSplitter* pNode)
    {
        if (const auto* const pViewer = qobject_cast<const COglViewer*>(pNode->widget(0)))
            return QString::number(pViewer->GetViewId());
        return QString("%1[%2 %3]")
            .arg(pNode->orientation() == Qt::Horizontal ? 'H' : 'V')
            .arg(TreeOf(static_cast<QSplitter*>(pNode->widget(0))),
                 TreeOf(static_cast<QSplitter*>(pNode->widget(1))));
    }
    QVector<qint64> Visible() const
    {
        QVector<qint64> ids;
        for (const qint64 nId : m_area.GetViewIds())
            if (m_area.GetViewer(nId)->GetWidget()->isVisible())
                ids.append(nId);
        return ids;
    }
    void Press(qint64 nViewId, const char* sButton)
    {
        m_area.GetOglViewer(nViewId)->findChild<QToolButton*>(sButton)->click();
    }

    CViewArea m_area;
    CViewCommands m_commands{m_area};
};

} // namespace

TEST_F(ViewArea, ViewsSplitIntoATreeAndCloseOutOfIt)
{
    EXPECT_EQ(m_area.Split(1, Qt::Horizontal), 2);
    EXPECT_EQ(m_area.Split(2, Qt::Vertical), 3);
    EXPECT_EQ(m_area.Split(1, Qt::Vertical), 4);
    EXPECT_EQ(Tree(), "H[V[1 4] V[2 3]]");
    EXPECT_EQ(Visible(), QVector<qint64>({1, 2, 3, 4}));
    EXPECT_NEAR(m_area.GetOglViewer(1)->height(), m_area.GetOglViewer(4)->height(), 2) << "equal halves";
    EXPECT_TRUE(m_area.Close(2));
    EXPECT_EQ(Tree(), "H[V[1 4] 3]");
    EXPECT_TRUE(m_area.Close(3));
    EXPECT_EQ(Tree(), "V[1 4]") << "the neighbour's orientation and children take the place";
    EXPECT_EQ(m_area.Split(4, Qt::Horizontal), 5) << "ids aren't used twice";
    EXPECT_TRUE(m_area.Close(1));
    EXPECT_EQ(Tree(), "H[4 5]");
    EXPECT_TRUE(m_area.Close(4));
    EXPECT_EQ(Visible(), QVector<qint64>({5}));
    EXPECT_FALSE(m_area.Close(5)) << "the last one stays";
    EXPECT_EQ(m_area.Split(7, Qt::Vertical), -1);
    EXPECT_FALSE(m_area.Close(7));
}

TEST_F(ViewArea, OneViewIsActiveAndTheNextTakesOverWhenItCloses)
{
    m_area.Split(1, Qt::Horizontal);
    m_area.Split(1, Qt::Horizontal);
    const QSignalSpy spy(&m_area, &CViewArea::SignalActiveViewChanged);
    QTest::mousePress(m_area.GetOglViewer(2)->findChild<QWidget*>("m_pFrame")->childAt(50, 100),
                      Qt::LeftButton);
    EXPECT_EQ(m_area.GetActiveViewId(), 2);
    m_area.Close(2);
    EXPECT_EQ(m_area.GetActiveViewId(), 3);
    m_area.Close(3);
    EXPECT_EQ(m_area.GetActiveViewId(), 1);
    m_area.SetActive(1);
    m_area.SetActive(99);
    EXPECT_EQ(spy.size(), 3);
}

TEST_F(ViewArea, AViewFillsTheAreaUntilItIsPutBackSplitOrClosed)
{
    m_area.Split(1, Qt::Horizontal);
    m_area.Split(2, Qt::Vertical);
    Press(3, "m_pExpandViewB");
    EXPECT_EQ(Visible(), QVector<qint64>({3}));
    EXPECT_EQ(m_area.GetActiveViewId(), 3);
    Press(3, "m_pExpandViewB");
    EXPECT_EQ(Visible(), QVector<qint64>({1, 2, 3}));
    Press(3, "m_pExpandViewB");
    m_area.Split(3, Qt::Horizontal);
    EXPECT_EQ(Visible(), QVector<qint64>({1, 2, 3, 4}));
    Press(1, "m_pExpandViewB");
    Press(1, "m_pCloseViewB");
    EXPECT_EQ(Visible(), QVector<qint64>({2, 3, 4}));
}

TEST_F(ViewArea, TheCamerasOfLinkedViewsFollowEachOther)
{
    m_area.Split(1, Qt::Horizontal);
    m_area.Split(1, Qt::Horizontal);
    QVector<qint64> followers;
    for (const qint64 nId : m_area.GetViewIds())
        QObject::connect(m_area.GetOglViewer(nId), &COglViewer::SignalCameraChangeIn,
                         [&followers, nId](CameraOperator_e eOperator, const SCameraOperator& camera) {
                             EXPECT_EQ(eOperator, CameraPan);
                             EXPECT_EQ(camera.dX, 0.25);
                             followers.append(nId);
                         });
    SCameraOperator pan;
    pan.dX = 0.25;
    Press(1, "m_pLinkViewB");
    Press(3, "m_pLinkViewB");
    m_area.GetOglViewer(1)->SlotCameraChangeOut(CameraPan, pan);
    EXPECT_EQ(followers, QVector<qint64>({3}));
    m_area.GetOglViewer(2)->SlotCameraChangeOut(CameraPan, pan);
    EXPECT_EQ(followers.size(), 1) << "2 isn't linked";
}

TEST_F(ViewArea, ASplitViewShowsTheSameCasesFromTheSameCamera)
{
    CTestSimulation* const pFirst = Add();
    CTestSimulation* const pSecond = Add();
    m_manager.SetActiveSimulation(1, pFirst->GetId());
    pSecond->m_viewStates[1] = "colours";
    SCamera camera;
    camera.view.rotate(30.0F, 1.0F, 0.0F);
    camera.viewCenter = {3.0, 4.0};
    m_area.GetOglViewer(1)->SetCamera(camera);
    m_commands.SlotViewerSplit(1, Qt::Horizontal, SplitInstance);
    EXPECT_EQ(m_area.GetActiveViewId(), 2);
    EXPECT_EQ(m_manager.GetSimulationIds(2), m_manager.GetSimulationIds(1));
    EXPECT_EQ(m_manager.GetUseCount(pSecond->GetId()), 2);
    EXPECT_EQ(m_manager.GetSimulationOfView(2), pFirst);
    EXPECT_EQ(pSecond->m_viewStates.value(2), "colours");
    const SCamera ofNew = m_area.GetOglViewer(2)->GetCamera(); // its projection follows from its shape
    EXPECT_EQ(ofNew.view, camera.view);
    EXPECT_EQ(ofNew.viewCenter, camera.viewCenter);
    m_commands.SlotViewerSplit(1, Qt::Vertical, SplitEmpty);
    EXPECT_TRUE(m_manager.GetSimulationIds(3).isEmpty());
}

TEST_F(ViewArea, ClosingAViewAsksForTheCasesThatAreInNoOther)
{
    CTestSimulation* const pShared = Add();
    m_commands.SlotViewerSplit(1, Qt::Horizontal, SplitInstance);
    CTestSimulation* const pOwn = Add(2);
    pShared->m_sCloseWarning = "shared";
    pOwn->m_sCloseWarning = "own";
    CPromptScript user;
    user.Press("No");
    Press(2, "m_pCloseViewB");
    EXPECT_EQ(m_area.GetViewIds().size(), 2) << "a refusal stops the close";
    EXPECT_EQ(m_manager.GetSimulationIds(2).size(), 2);
    user.Press("Yes");
    Press(2, "m_pCloseViewB");
    EXPECT_EQ(m_area.GetViewIds(), QVector<qint64>({1}));
    EXPECT_EQ(m_manager.GetSimulationIds(), QVector<qint64>({pShared->GetId()}));
    user.Press("Yes");
    Press(1, "m_pCloseViewB");
    EXPECT_EQ(m_area.GetViewIds(), QVector<qint64>({1})) << "the last view stays, empty";
    EXPECT_TRUE(m_manager.GetSimulationIds().isEmpty());
}
