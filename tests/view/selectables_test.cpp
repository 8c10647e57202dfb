// Selectables: what they show of an item, how they stand together, what they keep.
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/selectablekeys.h"
#include "tests/support/displaycase.h"
#include "tests/support/everysetting.h"
#include "view/annotations/annotationcolormap.h"
#include "view/selectables/itemselectable.h"

#include <QJsonArray>

namespace {

class Selectables : public DisplayCase
{
protected:
    ~Selectables() override { CPreferences::Instance() = CPreferences(); }

    CItemSelectable* NewBlock()
    {
        m_pSimulation->GetItem(1)->DeleteSelectable(VIEW);
        m_pSimulation->GetItem(1)->CreateSelectable(VIEW);
        return static_cast<CItemSelectable*>(Selectable(1));
    }
    /** As its JSON tells it. */
    static SSurfacePlane PlaneOfDrawable(const ISelectable* pSelectable, int n = 0)
    {
        SSurfacePlane plane;
        Definitions::FromJson(pSelectable->toJsonBlock()["drawables"].toArray()[n].toObject(), plane);
        return plane;
    }
    template <class Kind> std::unique_ptr<Kind> MakeOfType(qint64 nType)
    {
        CItem* const pItem = m_pSimulation->CreateItem(nType, 0, true, 0, -1, 0);
        pItem->SetName("wing", 0);
        pItem->SetParentId(1, true);
        Definitions::ToPack(FacePlane({5, 4, 3}, 1), *pItem);
        return std::unique_ptr<Kind>(dynamic_cast<Kind*>(
            m_factory.CreateItemSelectable(*pItem, {SelectableKind_e(nType), -1, {}}, VIEW)));
    }
};

} // namespace

TEST_F(Selectables, ABlockIsShownByTheFacesOfThePreferenceInFull)
{
    EXPECT_EQ(PlaneOfDrawable(Selectable(1)), FacePlane({5, 4, 3}, 4));
    EXPECT_EQ(Selectable(1)->displayType(), DisplayShaded);
    EXPECT_TRUE(Selectable(1)->drawables().first()->drawOutlines());
    Set(CPreferences::Instance(), PreferenceKey::DEFAULT_FACE, 6);
    const CItemSelectable* const pBlock = NewBlock();
    ASSERT_EQ(pBlock->drawables().size(), 6);
    EXPECT_EQ(PlaneOfDrawable(pBlock, 3), FacePlane({5, 4, 3}, 3));
    EXPECT_EQ(FacesToShow({5, 1, 3}, 4), QVector<int>{2}) << "its K face would be a line";
    EXPECT_EQ(FacesToShow({5, 4, 3}, 77), QVector<int>{4});
    EXPECT_EQ(FacesToShow({2, 40, 30}, 4), QVector<int>{0}) << "one layer of cells";
    EXPECT_EQ(FacesToShow({40, 2, 1}, 6), QVector<int>{4}) << "the thinnest";
}

TEST_F(Selectables, ANewItemHasTheColormapOfThePreference)
{
    EXPECT_EQ(Selectable(1)->colormap().nId, SColormapRecord::RGB_LINEAR);
    Set(CPreferences::Instance(), PreferenceKey::DEFAULT_COLORMAP, 4);
    EXPECT_EQ(NewBlock()->colormap().nId, 4);
    EXPECT_EQ(AddSurface()->colormap().nId, 4);
    EXPECT_EQ(Selectable(2)->colormap().nId, SColormapRecord::RGB_LINEAR) << "it was there before";
}

TEST_F(Selectables, TheJsonTellsTheExtremesOfAScalarThatIsShown)
{
    CSurfaceSelectable* const pSurface = AddSurface();
    IDrawable& drawable = *pSurface->drawables().first();
    drawable.setScalarVariable(Id("X"));
    drawable.setGeometricColor(false);
    EXPECT_FALSE(drawable.toJson().contains("minValue")) << "nothing was read yet";
    drawable.build();
    const SValueRange range = pSurface->rangeOfVariable(Id("X"));
    const QJsonObject json = drawable.toJson();
    EXPECT_EQ(json["minValue"].toDouble(), range.dMin);
    EXPECT_EQ(json["maxValue"].toDouble(), range.dMax);
    EXPECT_EQ(json["maxPoint"].toArray().at(0).toDouble(), range.dMax) << "the scalar is X itself";
    drawable.setScalarVariable(Id("Y"));
    EXPECT_FALSE(drawable.toJson().contains("minValue")) << "of the former scalar";
}

TEST_F(Selectables, EverySettingComesBackFromBytesAndJson)
{
    for (const bool bSurface : {false, true}) {
        ISelectable* const pSelectable = bSurface ? AddSurface() : Selectable(1);
        const QByteArray first = pSelectable->toBinary();
        SetEverySetting(*pSelectable, {Id("R"), Id("Momentum"), Id("R")}, 5);
        pSelectable->annotationColormap()->setVisible(true);
        pSelectable->setVisible(false);
        if (auto* const pSurface = dynamic_cast<CSurfaceSelectable*>(pSelectable)) {
            pSurface->setConstantDirection(0);
            pSurface->setConstantValue(4);
            pSurface->setEndIndices({5, 3, 2});
            pSurface->apply();
        }
        const QByteArray changed = pSelectable->toBinary();
        const QJsonObject json = pSelectable->toJsonBlock();
        ASSERT_TRUE(pSelectable->fromBinary(first, -1.0));
        EXPECT_EQ(pSelectable->toBinary(), first);
        ASSERT_TRUE(pSelectable->fromBinary(changed, -1.0));
        EXPECT_EQ(pSelectable->toBinary(), changed);
        ASSERT_TRUE(pSelectable->fromBinary(first, -1.0));
        ASSERT_TRUE(pSelectable->fromJsonBlock(json));
        EXPECT_EQ(pSelectable->toJsonBlock(), json);
        EXPECT_EQ(pSelectable->shadeColor().green(), 25);
    }
    IDrawable& drawable = *Selectable(1)->drawables().first();
    drawable.fromJson({{"contourCount", 1e300}, {"displayType", -1e300}});
    EXPECT_EQ(drawable.contourCount(), 1000) << "no more than can be drawn";
    drawable.setContourCount(1LL << 60);
    drawable.fromBinary(drawable.toBinary(), -1.0);
    EXPECT_EQ(drawable.contourCount(), 1000);
    EXPECT_FALSE(Selectable(1)->fromBinary(AddSurface()->toBinary(), -1.0)) << "another kind";
    const QByteArray whole = Selectable(1)->toBinary();
    for (int nSize = 0; nSize < whole.size(); ++nSize)
        EXPECT_FALSE(Selectable(1)->fromBinary(whole.left(nSize), -1.0)) << nSize;
}

TEST_F(Selectables, WhatALaterVersionSaysOfADrawableComesThroughThisOne)
{
    const CSurfaceSelectable* const pSurface = AddSurface();
    IDrawable& drawable = *pSurface->drawables().first();
    const QByteArray former = drawable.toBinary();
    QJsonObject json = drawable.toJson();
    EXPECT_TRUE(drawable.fromJson(json));
    EXPECT_EQ(drawable.toBinary().size(), former.size()) << "all of it is known";
    json["glow"] = QJsonObject{{"radius", 3}};
    EXPECT_TRUE(drawable.fromJson(json));
    EXPECT_EQ(drawable.toJson(), json);
    const QByteArray later = drawable.toBinary();
    EXPECT_TRUE(drawable.fromBinary(former, -1.0));
    EXPECT_FALSE(drawable.toJson().contains("glow"));
    EXPECT_TRUE(drawable.fromBinary(later, -1.0));
    EXPECT_EQ(drawable.toJson(), json);
    drawable.fromJson({{"contourCount", 3}});
    EXPECT_TRUE(drawable.toJson().contains("glow")) << "what isn't named stays";
}

TEST_F(Selectables, AStoredBlockBringsItsNumberOfFaces)
{
    Set(CPreferences::Instance(), PreferenceKey::DEFAULT_FACE, 6);
    CItemSelectable* const pSix = NewBlock();
    const QByteArray six = pSix->toBinary();
    Set(CPreferences::Instance(), PreferenceKey::DEFAULT_FACE, 1);
    CItemSelectable* const pOne = NewBlock();
    const QByteArray one = pOne->toBinary();
    EXPECT_TRUE(pOne->fromBinary(six, -1.0));
    ASSERT_EQ(pOne->drawables().size(), 6);
    EXPECT_EQ(PlaneOfDrawable(pOne, 3), FacePlane({5, 4, 3}, 3));
    EXPECT_TRUE(pOne->fromBinary(one, -1.0));
    EXPECT_EQ(pOne->drawables().size(), 1);
    EXPECT_EQ(PlaneOfDrawable(pOne), FacePlane({5, 4, 3}, 1));
}

TEST_F(Selectables, AParentTakesOwnedChildrenAlongAndOthersOnlyLoseTheLink)
{
    CSurfaceSelectable* const pOwned = AddSurface();
    CSurfaceSelectable* const pSoft = AddSurface();
    CSurfaceSelectable* const pBelow = AddSurface();
    ISelectable* const pBlock = Selectable(1);
    EXPECT_EQ(pBlock->childCount(), 3);
    pOwned->addParent(pBlock, true);
    pBlock->removeChild(pBelow);
    pBelow->addParent(pOwned, true);
    EXPECT_TRUE(pBelow->isDescendantOf(pBlock));
    EXPECT_FALSE(pBlock->isDescendantOf(pBelow));
    CSelectableManager& manager = CSelectableManager::Instance();
    manager.Remove(pBlock);
    EXPECT_FALSE(manager.Exists(pOwned));
    EXPECT_FALSE(manager.Exists(pBelow));
    ASSERT_TRUE(manager.Exists(pSoft));
    EXPECT_FALSE(pSoft->isDescendantOf(pBlock));
    manager.Remove(pSoft);
}

TEST_F(Selectables, ASurfaceStaysInsideItsBlockAndTellsWhereItIs)
{
    CSurfaceSelectable* const pSurface = AddSurface(1, 2);
    EXPECT_EQ(pSurface->name(), "Surface K = 2 [Block 1]");
    pSurface->setConstantDirection(0);
    pSurface->setConstantValue(99);
    pSurface->setStartIndices({1, 3, 1});
    pSurface->setEndIndices({5, 2, 3}); // ahead of the start
    pSurface->apply();
    EXPECT_EQ(pSurface->name(), "Surface I = 5 [Block 1]");
    EXPECT_EQ(Get(*pSurface, SelectableKey::COLUMN, 2), "I");
    const SSurfacePlane plane = PlaneOfDrawable(pSurface);
    EXPECT_EQ(plane.Range(), (SIJKRange{{5, 3, 1}, {5, 4, 3}}));
    auto* const pDrawable = static_cast<CSurfaceDrawable*>(pSurface->drawables().first());
    pDrawable->build();
    EXPECT_EQ(pDrawable->positions().size(), 6U) << "it has been handed on";
    EXPECT_EQ(Definitions::FromPack<SSurfacePlane>(*m_pSimulation->GetItem(pSurface->itemId())), plane)
        << "later views start from it";
    pSurface->setConstantDirection(1);
    EXPECT_EQ(pSurface->startIndices(), (IVector3D{1, 1, 1})) << "a new direction takes the whole block";
    EXPECT_EQ(CreateSurfaceItem(*m_pSimulation, 77, {}), nullptr);
}

TEST_F(Selectables, ANewSurfaceGoesOnWithTheColoursOfItsBlock)
{
    ISelectable* const pBlock = Selectable(1);
    EXPECT_TRUE(AddSurface()->geometricColor());
    pBlock->setScalarVariable(7);
    pBlock->setGeometricColor(false);
    pBlock->setColormapType(3);
    pBlock->setColormapValues(-2.0, 5.0);
    const CSurfaceSelectable* const pSurface = AddSurface();
    EXPECT_EQ(pSurface->scalarVariable(), 7);
    EXPECT_FALSE(pSurface->geometricColor());
    EXPECT_EQ(pSurface->colormap().nId, 3);
    EXPECT_EQ(pSurface->colormap().dMinimum, -2.0);
    EXPECT_EQ(pSurface->colormap().dMaximum, 5.0);
}

TEST_F(Selectables, BoundariesAndFacesKeepTheirPlace)
{
    const auto pBoundary = MakeOfType<CBoundarySurfaceSelectable>(KindBoundarySurface);
    const auto pFace = MakeOfType<CFaceSelectable>(KindFace);
    EXPECT_EQ(pBoundary->name(), "wing");
    EXPECT_EQ(pFace->name(), "Face I [Block 1]");
    pBoundary->setConstantDirection(2);
    pBoundary->setConstantValue(1);
    pBoundary->apply();
    EXPECT_EQ(PlaneOfDrawable(pBoundary.get()), FacePlane({5, 4, 3}, 1));
}

TEST_F(Selectables, AnEditedDisplayFileMovesASurface)
{
    CSurfaceSelectable* const pSurface = AddSurface();
    QJsonObject surface = pSurface->toJsonBlock();
    surface["constantDirection"] = 1;
    surface["constantValue"] = QJsonArray{9, 3, 9};
    EXPECT_TRUE(pSurface->fromJsonBlock(surface));
    EXPECT_EQ(pSurface->name(), "Surface J = 3 [Block 1]");
}

TEST_F(Selectables, TheRangeOfAVariableIsThatOfTheItemAlone)
{
    CSurfaceSelectable* const pSurface = AddSurface(1, 2);
    pSurface->setRanges({2, 1, 1}, {4, 3, 3});
    pSurface->apply();
    SValueRange expected, ofBlock;
    {
        const auto pField = Field("X", 1);
        for (qint64 k = 1; k <= 3; ++k)
            for (qint64 j = 1; j <= 4; ++j)
                for (qint64 i = 1; i <= 5; ++i) {
                    ofBlock.Add(pField->GetValue(IVector3D{i, j, k}));
                    if (k == 2 && j <= 3 && i >= 2 && i <= 4)
                        expected.Add(pField->GetValue(IVector3D{i, j, k}));
                }
    }
    EXPECT_EQ(pSurface->rangeOfVariable(Id("X")), expected);
    EXPECT_EQ(Selectable(1)->rangeOfVariable(Id("X")), ofBlock);
    EXPECT_TRUE(Selectable(1)->rangeOfVariable(-1).IsEmpty());
}

TEST_F(Selectables, AnAnalysisIsOfferedByTheKindOnlyWithData)
{
    EXPECT_TRUE(Selectable(1)->CanCalculateISOSurface());
    EXPECT_FALSE(AddSurface()->CanCalculateISOSurface()) << "not of its kind";
    EXPECT_TRUE(AddSurface()->CanIntegrateForce());
    RemoveCaseData(SIMULATION);
    EXPECT_FALSE(Selectable(1)->CanCalculateISOSurface());
}

TEST_F(Selectables, AnItemWithoutDrawablesKeepsItsOwnVisibility)
{
    CItem* const pItem = m_pSimulation->CreateItem(3, 0, true, 0, -1, 0);
    pItem->CreateSelectable(VIEW);
    ISelectable* const pSelectable = pItem->GetSelectable(VIEW);
    EXPECT_EQ(pSelectable->displayType(), -1);
    pSelectable->setVisible(false);
    const QByteArray hidden = pSelectable->toBinary();
    pSelectable->setVisible(true);
    EXPECT_TRUE(pSelectable->fromBinary(hidden, -1.0));
    EXPECT_FALSE(pSelectable->isVisible());
}
