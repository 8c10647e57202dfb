// The dock that edits surfaces: what it shows of several, and what its edits do.
#include "scene/itemdrag.h"
#include "tests/support/displaycase.h"
#include "view/docks/surfacedatadock.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMimeData>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

namespace {

class SurfaceDataDock : public DisplayCase
{
protected:
    template <class Widget> Widget* Find(const char* sName) { return m_dock.findChild<Widget*>(sName); }
    QSpinBox* Spin(const char* sName) { return Find<QSpinBox>(sName); }
    QString Text(const char* sLabel) { return Find<QLabel>(sLabel)->text(); }
    SurfaceDataDock()
    {
        const CSelectableManager* const pManager = &CSelectableManager::Instance();
        QObject::connect(pManager, &CSelectableManager::SignalUpdateSelectable, &m_dock,
                         &CSurfaceDataDock::SlotSelectableChanged);
        QObject::connect(pManager, &CSelectableManager::SignalSelectableDeleted, &m_dock,
                         &CSurfaceDataDock::SlotSelectableDeleted);
    }
    void Open(const QVector<ISelectable*>& selectables) { m_dock.SlotSelectableDoubleClicked(selectables); }
    /** Types a number over the box's text and leaves it. */
    void Enter(QAbstractSpinBox* pBox, const char* sText)
    {
        pBox->selectAll();
        QTest::keyClicks(pBox, sText);
        QTest::keyClick(pBox, Qt::Key_Return);
    }
    qint64 Steps() const { return m_pSimulation->GetUndoCount(); }

    CSurfaceDataDock m_dock;
};

} // namespace

TEST_F(SurfaceDataDock, ItShowsTheBlockAndThePlane)
{
    EXPECT_EQ(Text("m_pHeadL"), "Surface: Not Selected");
    CSurfaceSelectable* const pSurface = AddSurface(1, 2);
    Open({Selectable(1)});
    EXPECT_TRUE(m_dock.isHidden()) << "a block isn't a surface";
    m_dock.SlotSelectableDoubleClicked(pSurface);
    EXPECT_FALSE(m_dock.isHidden());
    EXPECT_EQ(Text("m_pHeadL"), "Surface: [Zone Block 1]");
    EXPECT_EQ(Text("m_pSizeL"), "5 x 4 x 3 [nodes]");
    EXPECT_EQ(Find<QComboBox>("m_pConstDirectionCB")->currentText(), "K");
    EXPECT_EQ(Spin("m_pConstValueE")->value(), 2);
    EXPECT_EQ(Spin("m_pConstValueE")->maximum(), 3);
    EXPECT_EQ(Text("m_pMEndL"), "I end:");
    EXPECT_EQ(Spin("m_pMDirectionEndE")->value(), 5);
    EXPECT_EQ(Spin("m_pNDirectionEndE")->value(), 4);
    EXPECT_EQ(Steps(), 0) << "showing is no edit";
    m_pSimulation->GetItem(1)->SetName("", 0);
    m_dock.SlotRefreshAll();
    EXPECT_EQ(Text("m_pHeadL"), "Surface: [Zone NONAME]");
}

TEST_F(SurfaceDataDock, EachEditIsAStepThatUndoTakesBack)
{
    CSurfaceSelectable* const pSurface = AddSurface(1, 2);
    Open({pSurface});
    const std::function<void()> edits[] = {
        [&] { Find<QComboBox>("m_pConstDirectionCB")->setCurrentIndex(0); },
        [&] { Enter(Spin("m_pConstValueE"), "3"); },
        [&] { Enter(Spin("m_pMDirectionStartE"), "2"); },
        [&] { Enter(Spin("m_pMDirectionEndE"), "3"); },
        [&] { Enter(Spin("m_pNDirectionStartE"), "2"); },
        [&] { Enter(Spin("m_pNDirectionEndE"), "2"); },
        [&] { Find<QComboBox>("m_pDisplayOnCB")->setCurrentIndex(1); },
        [&] { Enter(Find<QDoubleSpinBox>("m_pLineThicknessSurfaceE"), "4.5"); },
        [&] { Enter(Spin("m_pContoursE"), "9"); },
        [&] { Find<QSlider>("m_pTransparencyS")->setValue(40); },
    };
    QVector<QByteArray> displays{Display()};
    for (const auto& edit : edits) {
        edit();
        EXPECT_EQ(Steps(), displays.size());
        displays.append(Display());
    }
    // Start 2 of J in place of 1 to 4, then its end, of the plane I = 3.
    EXPECT_EQ(pSurface->plane().Range(), (SIJKRange{{3, 2, 2}, {3, 3, 2}}));
    EXPECT_EQ(pSurface->contourCount(), 9);
    EXPECT_DOUBLE_EQ(pSurface->alphaValue(), 0.6);
    EXPECT_EQ(Text("m_pSizeL"), "4 x 3 x 2 [cells]");
    while (displays.size() > 1) {
        m_pSimulation->Undo();
        displays.removeLast();
        EXPECT_EQ(Display(), displays.last()) << displays.size();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(Find<QComboBox>("m_pConstDirectionCB")->currentText(), "K") << "the dock follows";
}

TEST_F(SurfaceDataDock, ADragOfASliderIsOneStep)
{
    CSurfaceSelectable* const pSurface = AddSurface(1, 1);
    Open({pSurface});
    auto* const pSlider = Find<QSlider>("m_pConstValueS");
    pSlider->setSliderDown(true);
    pSlider->setValue(2);
    pSlider->setValue(3);
    EXPECT_EQ(pSurface->constantValue(), 3) << "while it moves";
    EXPECT_EQ(Spin("m_pConstValueE")->value(), 3);
    pSlider->setSliderDown(false);
    EXPECT_EQ(Steps(), 1);
    pSlider->setSliderDown(true);
    pSlider->setValue(1);
    m_dock.hide(); // without a release
    EXPECT_EQ(Steps(), 2);
    pSurface->setLineThickness(7.0);
    EXPECT_EQ(pSurface->constantValue(), 1);
}

TEST_F(SurfaceDataDock, SeveralSurfacesShowWhatTheyShareAndAreEditedTogether)
{
    CSurfaceSelectable* const pFirst = AddSurface(1, 2);
    CSurfaceSelectable* const pSecond = AddSurface(2, 3);
    pSecond->setLineThickness(8.0);
    Open({pFirst, pSecond});
    EXPECT_EQ(Text("m_pHeadL"), "Surface: [Zone -Multiple-]");
    EXPECT_EQ(Text("m_pSizeL"), "-Multiple-");
    EXPECT_EQ(Spin("m_pConstValueE")->text(), "-Multiple-");
    EXPECT_EQ(Find<QDoubleSpinBox>("m_pLineThicknessSurfaceE")->text(), "-Multiple-");
    EXPECT_EQ(Spin("m_pNDirectionEndE")->maximum(), 3) << "all that both blocks have";
    Enter(Spin("m_pConstValueE"), "1");
    EXPECT_EQ(pFirst->constantValue(), 1);
    EXPECT_EQ(pSecond->constantValue(), 1);
    EXPECT_EQ(Steps(), 1);
    EXPECT_EQ(Spin("m_pConstValueE")->text(), "1");
    pSecond->setConstantDirection(0);
    pSecond->apply();
    QCoreApplication::processEvents();
    EXPECT_FALSE(Spin("m_pConstValueE")->isEnabled());
    Find<QComboBox>("m_pConstDirectionCB")->setCurrentIndex(1);
    EXPECT_EQ(pFirst->constantDirection(), 1);
    EXPECT_EQ(pSecond->constantDirection(), 1);
    CSelectableManager::Instance().Remove(pFirst);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text("m_pHeadL"), "Surface: [Zone Block 2]");
    CSelectableManager::Instance().Remove(pSecond);
    EXPECT_TRUE(m_dock.isHidden());
}

TEST_F(SurfaceDataDock, ABlockOnePointThickHasOneConstantThere)
{
    m_pSimulation->GetItem(1)->SetSize({5, 4, 1});
    Open({AddSurface(1, 1)});
    EXPECT_EQ(Spin("m_pConstValueE")->minimum(), 1);
    EXPECT_EQ(Spin("m_pConstValueE")->maximum(), 1);
}

TEST_F(SurfaceDataDock, ABoundaryCanBeDisplayedOtherwiseButNotMoved)
{
    CItem* const pItem = m_pSimulation->CreateItem(KindBoundarySurface, 0, true, 0, -1, 0);
    pItem->SetParentId(1, true);
    pItem->CreateSelectable(VIEW);
    Open({pItem->GetSelectable(VIEW)});
    EXPECT_FALSE(Find<QGroupBox>("m_pPlaneGroup")->isEnabled());
    Enter(Spin("m_pContoursE"), "5");
    EXPECT_EQ(pItem->GetSelectable(VIEW)->contourCount(), 5);
}

TEST_F(SurfaceDataDock, DroppedSurfacesJoinThoseOfTheSameCase)
{
    CSurfaceSelectable* const pFirst = AddSurface();
    CSurfaceSelectable* const pSecond = AddSurface();
    Open({pFirst});
    QMimeData data;
    WriteItemDrag(data, {VIEW, SIMULATION, {1, pSecond->itemId()}});
    ASSERT_TRUE(m_dock.CanDrop(&data));
    m_dock.Drop({}, &data);
    EXPECT_EQ(m_dock.GetSelectables(), (QVector<ISelectable*>{pFirst, pSecond}));
    QMimeData blockOnly, foreign;
    WriteItemDrag(blockOnly, {VIEW, SIMULATION, {1}});
    WriteItemDrag(foreign, {VIEW, SIMULATION + 1, {pSecond->itemId()}});
    EXPECT_FALSE(m_dock.CanDrop(&blockOnly));
    EXPECT_FALSE(m_dock.CanDrop(&foreign));
}
