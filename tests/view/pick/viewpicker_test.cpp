#include "view/pick/viewpicker.h"

#include "tests/support/simulationfixture.h"
#include "tests/support/testsurface.h"
#include "view/pick/hoverlist.h"
#include "view/pick/viewselection.h"

#include <QSignalSpy>

namespace {

constexpr qint64 VIEW = 1;
using Selectables = QVector<ISelectable*>;

/** A selectable with the surfaces of a test. */
class CPickSelectable : public CTestSelectable
{
public:
    using CTestSelectable::CTestSelectable;
    ~CPickSelectable() override { qDeleteAll(m_drawables); }

    bool isDescendantOf(const ISelectable* p) const override
    {
        return m_parents.contains(const_cast<ISelectable*>(p));
    }
    void Own(CTestSurface* pSurface)
    {
        pSurface->addOwner(this);
        m_drawables.append(pSurface);
    }
};

/** Flat squares of 3 by 3 elements in the plane z = 0, seen along -z. */
class CViewPicker : public SimulationFixture
{
protected:
    CViewPicker() { m_nSimulation = Add(VIEW)->GetId(); }
    ~CViewPicker() override { CSelectableManager::Instance().RemovePair(VIEW, m_nSimulation); }

    CTestSurface* Square(double dX, double dY, double dSize = 2.0)
    {
        const auto place = [=](qint64 r, qint64 c) {
            return DVector3D{dX + 0.5 * dSize * double(r), dY + 0.5 * dSize * double(c), 0.0};
        };
        auto* const pSurface = new CTestSurface(m_nSimulation, VIEW, {3, 3}, place);
        pSurface->setDisplayTypeQuick(DisplayShaded);
        return pSurface;
    }
    CPickSelectable* Select(QVector<CTestSurface*> surfaces)
    {
        auto* const pSelectable = new CPickSelectable(VIEW, m_nSimulation, m_nNextItem++);
        for (CTestSurface* const pSurface : surfaces)
            pSelectable->Own(pSurface);
        CSelectableManager::Instance().Add(pSelectable);
        return pSelectable;
    }
    static SPickArea At(double dX, double dY, double dReach = 0.01)
    {
        return {VIEW, {}, {dX - dReach, dY - dReach, dX + dReach, dY + dReach}};
    }
    static bool IsHit(double dX, double dY) { return !ViewPicker::Hits(At(dX, dY)).isEmpty(); }

    qint64 m_nSimulation;
    qint64 m_nNextItem = 1;
};

} // namespace

using ViewPickerTest = CViewPicker;

TEST_F(ViewPickerTest, TheDisplayTypeDecidesWhatCanBeHit)
{
    CTestSurface* const pSurface = Square(0, 0);
    Select({pSurface});
    const auto hits = [&](DisplayType_e eType) {
        pSurface->setDisplayTypeQuick(eType);
        return QString(IsHit(1, 1) ? "point " : "") + (IsHit(1, 0.4) ? "line " : "") +
               (IsHit(0.4, 0.3) ? "face " : "") + (IsHit(2.5, 1) ? "nothing" : "");
    };
    EXPECT_EQ(hits(DisplayOutline), "point line ");
    EXPECT_EQ(hits(DisplayNodes), "point ");
    EXPECT_EQ(hits(DisplayContour), "point line "); // a point is an end of lines
    EXPECT_EQ(hits(DisplayShaded), "point line face ");
    pSurface->setPreview(true);
    EXPECT_EQ(hits(DisplayShaded), "");
}

TEST_F(ViewPickerTest, HitsComeOnceAndInTheOrderOfTheDrawables)
{
    CTestSurface* const pFirst = Square(0, 0);
    CTestSurface* const pSecond = Square(0, 0);
    ISelectable* const pOther = Select({Square(0, 0)});
    ISelectable* const pTwice = Select({pFirst, pSecond});
    EXPECT_EQ(ViewPicker::Hits(At(1, 1)), (Selectables{pTwice, pOther}));
}

TEST_F(ViewPickerTest, HolesAreHitOnlyWhileTheyAreHidden)
{
    CTestSurface* const pSurface = Square(0, 0);
    Select({pSurface});
    pSurface->m_mask = {0, 0, 0, 0, 0, 0, 1, 1, 1}; // only the last row lives
    pSurface->invalidateAll();
    pSurface->build();
    EXPECT_FALSE(IsHit(0, 1));
    EXPECT_FALSE(IsHit(0.4, 0.3));
    EXPECT_TRUE(IsHit(2, 0.5));
    pSurface->setShowHoles(false);
    pSurface->build();
    EXPECT_TRUE(IsHit(0, 1)); // the box has grown along
    EXPECT_TRUE(ViewPicker::PointAt(At(0, 1)).point.bIsHole);
}

TEST_F(ViewPickerTest, MirrorsSectorsModelAndExtensionMatricesAreAllSeen)
{
    CTestSurface* const pSurface = Square(1, 0);
    Select({pSurface});
    EXPECT_FALSE(IsHit(-3, 2));
    SMirrorSetting mirror;
    mirror.bActive = {true, false, false};
    m_manager.SetMirror(VIEW, m_nSimulation, mirror);
    EXPECT_TRUE(IsHit(-3, 2));
    EXPECT_TRUE(IsHit(3, 2));
    const SPointPick pick = ViewPicker::PointAt(At(-3, 2));
    EXPECT_EQ(pick.point.xyz, (DVector3D{3, 2, 0}));
    EXPECT_EQ(pick.displayed, (DVector3D{-3, 2, 0}));
    pSurface->m_givenModel.translate(0, 100, 0);
    pSurface->invalidateAll();
    pSurface->build();
    EXPECT_FALSE(IsHit(-3, 2));
    EXPECT_TRUE(IsHit(-3, 102));
    QMatrix4x4 extension;
    extension.translate(0, -50, 0);
    pSurface->setExtensionMatrix(extension);
    EXPECT_FALSE(IsHit(3, -48));
    pSurface->setExtended(true);
    EXPECT_TRUE(IsHit(3, -48));
}

TEST_F(ViewPickerTest, APickedPointHasPlaceIndexAndNameAndWhatIsAskedForGoesAhead)
{
    Select({Square(0, 0)});
    CPickSelectable* const pChild = Select({Square(0, 0)});
    static_cast<CTestSurface*>(pChild->drawables().first())->m_sName = "child";
    SPointPick pick = ViewPicker::PointAt(At(2, 1));
    EXPECT_EQ(pick.point.sItemName, "surface");
    EXPECT_EQ(pick.point.xyz, (DVector3D{2, 1, 0}));
    EXPECT_EQ(pick.point.ijk, (IVector3D{3, 2, 1}));
    EXPECT_EQ(pick.point.dValue, NO_VALUE);
    ISelectable* const pParent = Select({});
    pChild->addParent(pParent, false);
    EXPECT_EQ(ViewPicker::PointAt(At(2, 1), pParent).point.sItemName, "child");
    EXPECT_EQ(ViewPicker::PointAt(At(1.5, 0.5)).pDrawable, nullptr); // a face has no point
}

TEST_F(ViewPickerTest, WhatIsInFrontAtThePointerComesFirstAndHasTheNode)
{
    CTestSurface* const pBehind = Square(0, 0);
    CTestSurface* const pFront = Square(-0.5, -0.5); // its nodes stand at halves
    CTestSurface* const pLines = Square(0, 0.3);
    pFront->m_givenModel.translate(0, 0, 1);
    pLines->m_givenModel.translate(0, 0, 2);
    for (CTestSurface* const pSurface : {pFront, pLines}) {
        pSurface->invalidateAll();
        pSurface->build();
    }
    pLines->setDisplayTypeQuick(DisplayOutline);
    ISelectable* const pBack = Select({pBehind});
    ISelectable* const pShown = Select({pFront});
    ISelectable* const pLine = Select({pLines});
    EXPECT_EQ(ViewPicker::HitsFromFront(At(0.9, 0.8)), (Selectables{pShown, pBack}));
    EXPECT_EQ(ViewPicker::HitsFromFront(At(0.0, 0.6)), (Selectables{pLine, pShown, pBack}));
    EXPECT_EQ(ViewPicker::HitsFromFront(At(1.6, 1.6, 0.2)), (Selectables{pBack, pShown})) << "beside it";
    EXPECT_EQ(ViewPicker::PointAt(At(0.95, 0.95, 0.2)).pDrawable, nullptr) << "a node behind is hidden";
    EXPECT_EQ(ViewPicker::PointAt(At(0.95, 0.95, 0.2), pBack).pDrawable, pBehind) << "but was asked for";
    const SPointPick near = ViewPicker::PointAt(At(0.8, 0.85, 0.47)); // nearer to the hidden node at 1, 1
    EXPECT_EQ(near.pDrawable, pFront);
    EXPECT_EQ(near.point.xyz, (DVector3D{0.5, 0.5, 0.0}));
}

TEST_F(ViewPickerTest, OfASurfaceThatFoldsTheNodeInFrontIsTaken)
{
    // Half a tube along y: rows go round it, those behind are seen between those in front.
    const auto place = [](qint64 r, qint64 c) {
        const double dAngle = 0.1 + 2.0 * M_PI * double(r) / 40.0;
        return DVector3D{std::cos(dAngle), 0.1 * double(c), std::sin(dAngle)};
    };
    auto* const pTube = new CTestSurface(m_nSimulation, VIEW, {41, 3}, place);
    pTube->setDisplayTypeQuick(DisplayShaded);
    Select({pTube});
    for (double x = -0.9; x < 0.9; x += 0.017) {
        const SPointPick pick = ViewPicker::PointAt(At(x, 0.1, 0.12));
        ASSERT_TRUE(pick.pDrawable) << x;
        EXPECT_GT(pick.point.xyz.z, 0.0) << x;
        for (qint64 r = 0; r < 20; ++r)
            if (place(r, 1).z > 0.0) {
                EXPECT_LE(std::abs(pick.point.xyz.x - x), std::abs(place(r, 1).x - x) + 1e-12) << x;
            }
    }
}

TEST_F(ViewPickerTest, InTheBoxIsWhatDoesNotReachOutOfIt)
{
    ISelectable* const pInside = Select({Square(0, 0)});
    ISelectable* const pAcross = Select({Square(2.5, 0)});
    Select({Square(8, 0)});
    const SPickRect whole{-10, -10, 10, 10};
    const SPickArea area{VIEW, {}, {-1, -1, 3, 3}};
    EXPECT_EQ(ViewPicker::Hits(area), (Selectables{pInside, pAcross}));
    EXPECT_EQ(ViewPicker::HitsInside(area, whole), Selectables{pInside});
    EXPECT_EQ(ViewPicker::HitsInside(area, area.rect), (Selectables{pInside, pAcross})); // nothing around it
}

TEST_F(ViewPickerTest, SelectingChangesFlagsAndTellsOnce)
{
    ISelectable* const a = Select({});
    ISelectable* const b = Select({});
    QSignalSpy spy(&CSelectableManager::Instance(), &CSelectableManager::SignalSelectionChanged);
    const auto expect = [&](const Selectables& selected, int nSignals) {
        EXPECT_EQ(CSelectableManager::Instance().GetSelected(VIEW, m_nSimulation), selected);
        EXPECT_EQ(spy.count(), nSignals);
        spy.clear();
    };
    ViewSelection::SelectHits(VIEW, m_nSimulation, {a}, false);
    ViewSelection::SelectHits(VIEW, m_nSimulation, {b}, true);
    expect({a, b}, 2);
    ViewSelection::SelectHits(VIEW, m_nSimulation, {b}, false);
    ViewSelection::SelectHits(VIEW, m_nSimulation, {b}, false);
    expect({b}, 1);
    ViewSelection::Click(VIEW, m_nSimulation, a, true);
    ViewSelection::Click(VIEW, m_nSimulation, b, true);
    expect({a}, 2);
    ViewSelection::Click(VIEW, m_nSimulation, b, false);
    ViewSelection::Click(VIEW, m_nSimulation, nullptr, true);
    expect({b}, 1);
    ViewSelection::Click(VIEW, m_nSimulation, nullptr, false);
    expect({}, 1);
}

TEST_F(ViewPickerTest, WhatIsInFrontIsHoveredUntilTheKeyAsksForWhatLiesBehind)
{
    ISelectable* const a = Select({});
    ISelectable* const b = Select({});
    a->setHover(true); // by the panel
    CHoverList list(VIEW);
    EXPECT_TRUE(list.Update({b}));
    EXPECT_FALSE(a->isHover());
    EXPECT_FALSE(list.Update({b}));
    EXPECT_TRUE(list.Update({a, b}));
    EXPECT_EQ(list.Current(), a) << "the pointer has come to it";
    EXPECT_EQ(list.Asked(), nullptr);
    EXPECT_TRUE(list.Step());
    EXPECT_EQ(CSelectableManager::Instance().GetHovered(VIEW), Selectables{b});
    ISelectable* const c = Select({});
    list.Update({c, a, b});
    EXPECT_EQ(list.Asked(), b) << "it stays while the pointer is on it";
    list.Update({c, b});
    list.Forget(c);
    EXPECT_EQ(list.Current(), b);
    list.Forget(b);
    EXPECT_EQ(list.Current(), nullptr);
}

TEST_F(ViewPickerTest, TreesAreBuiltByTheFirstPickThatMeetsTheirBox)
{
    CTestSurface* const pNear = Square(0, 0);
    CTestSurface* const pFar = Square(10, 0);
    Select({pNear, pFar});
    const SPickArea area = At(1, 1);
    EXPECT_EQ(ViewPicker::CountNewItems(area), 9 + 12 + 8); // points, lines, triangles
    EXPECT_EQ(ViewPicker::CountNewItems({VIEW, {}, {-1, -1, 11, 3}}), 2 * (9 + 12 + 8));
    EXPECT_FALSE(pNear->hasPickTree());
    EXPECT_FALSE(IsHit(5, 1)); // between the two
    EXPECT_FALSE(pNear->hasPickTree() || pFar->hasPickTree());
    EXPECT_TRUE(IsHit(1, 1));
    EXPECT_TRUE(pNear->hasPickTree());
    EXPECT_FALSE(pFar->hasPickTree());
    EXPECT_EQ(ViewPicker::CountNewItems(area), 0);
    pNear->invalidateAll();
    pNear->build();
    EXPECT_FALSE(pNear->hasPickTree()) << "it was of other elements";
}
