#include "scene/selectablemanager.h"

#include "tests/support/testsimulation.h"

namespace {

class SelectableManager : public testing::Test
{
protected:
    ~SelectableManager() override
    {
        for (const qint64 nViewId : {1, 2})
            for (ISelectable* const pSelectable : m_manager.GetSelectables(nViewId))
                m_manager.Remove(pSelectable);
    }
    CTestSelectable* Add(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
    {
        auto* const pSelectable = new CTestSelectable(nViewId, nSimulationId, nItemId);
        m_manager.Add(pSelectable);
        return pSelectable;
    }

    CSelectableManager& m_manager = CSelectableManager::Instance();
};

} // namespace

TEST_F(SelectableManager, FindsByPairAndItemTheFirstThatWasAdded)
{
    ISelectable* const pFirst = Add(1, 5, 10);
    Add(1, 5, 10);
    ISelectable* const pOtherView = Add(2, 5, 10);
    EXPECT_EQ(m_manager.Find(1, 5, 10), pFirst);
    EXPECT_EQ(m_manager.Find(2, 5, 10), pOtherView);
    EXPECT_EQ(m_manager.Find(1, 6, 10), nullptr);
    EXPECT_EQ(m_manager.GetSelectables(1, 5).size(), 2);
}

TEST_F(SelectableManager, ListenersHearOfTheEndWhileTheObjectStillLives)
{
    ISelectable* const pSelectable = Add(1, 5, 10);
    int nHeard = 0;
    const auto connection = QObject::connect(&m_manager, &CSelectableManager::SignalSelectableDeleted,
                                             [&](ISelectable* pGone) { nHeard += pGone->itemId() == 10; });
    m_manager.Remove(pSelectable);
    m_manager.Remove(pSelectable); // unknown by now
    QObject::disconnect(connection);
    EXPECT_EQ(nHeard, 1);
    EXPECT_FALSE(m_manager.Exists(pSelectable));
}

TEST_F(SelectableManager, APairAndAnItemAreRemovedWithoutTheirNeighbours)
{
    Add(1, 5, 10);
    Add(1, 5, 11);
    ISelectable* const pKept = Add(1, 6, 10);
    Add(2, 5, 10);
    ISelectable* const pOther = Add(2, 5, 11);
    m_manager.RemovePair(1, 5);
    m_manager.RemoveItem(5, 10);
    EXPECT_EQ(m_manager.GetSelectables(1), QVector<ISelectable*>({pKept}));
    EXPECT_EQ(m_manager.GetSelectables(2), QVector<ISelectable*>({pOther}));
}

TEST_F(SelectableManager, SelectedAndHoveredAreToldApart)
{
    ISelectable* const pSelected = Add(1, 5, 10);
    ISelectable* const pHovered = Add(1, 6, 10);
    pSelected->setSelected(true);
    pHovered->setHover(true);
    EXPECT_EQ(m_manager.GetSelected(1, 5), QVector<ISelectable*>({pSelected}));
    EXPECT_TRUE(m_manager.GetSelected(1, 6).isEmpty());
    EXPECT_EQ(m_manager.GetHovered(1), QVector<ISelectable*>({pHovered}));
}
