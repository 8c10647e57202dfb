// Kinds and parts of a module's own, and what this version doesn't know: files bring all of it back.
#include "cases/display/displayoverrides.h"
#include "cases/display/viewjson.h"
#include "cases/display/viewstate.h"
#include "tests/support/displaycase.h"
#include "view/selectables/kinds.h"

#include <QJsonArray>

namespace {

constexpr auto CUT_KIND = SelectableKind_e(1LL << 30), WALL_KIND = SelectableKind_e(1LL << 31);
constexpr qint64 CUT_TYPE = 3; // a number of the module, which is no kind

/** An item that is shown as a plane through a block, whatever its type. */
class CCutItem : public CItem
{
public:
    SelectableKind_e GetShownKind() const override { return CUT_KIND; }
};

/** A block whose walls are no items. */
class CWalledBlock : public CItem
{
public:
    SelectableKind_e GetShownKind() const override { return KindBlock; }
    QVector<SItemPart> GetParts() const override
    {
        return {{WALL_KIND, 2, "floor"}, {WALL_KIND, 3, "ceiling"}};
    }
};

class CWall : public CShapeSelectable<SSurfacePlane, CSurfaceDrawable>
{
public:
    CWall(const CItem& item, qint64 nPartId, qint64 nViewId)
        : CShapeSelectable(item, nViewId, WALL_KIND, nPartId)
    {
        SetBlocks({item.GetId()});
        AddShape(new CSurfaceDrawable(simulationId(), nViewId, blockId()),
                 FacePlane(item.GetSize(), int(nPartId)));
    }
};

class CKindSimulation : public CDisplaySimulation
{
public:
    CItem* CreateItem(qint64 nType, qint64 nKind, bool bNew, qint64 nIndex, qint64 nId,
                      qint64 nSubId) override
    {
        if (nType != CUT_TYPE && nType != CUT_TYPE + 1)
            return CDisplaySimulation::CreateItem(nType, nKind, bNew, nIndex, nId, nSubId);
        CItem* const pItem = nType == CUT_TYPE ? static_cast<CItem*>(new CCutItem) : new CWalledBlock;
        pItem->SetId(nId == -1 ? GetNextItemId() : nId);
        pItem->SetType(nType);
        return InsertItem(pItem);
    }
    CItem* AddWalled()
    {
        CItem* const pItem = CreateItem(CUT_TYPE + 1, 0, true, 0, -1, 0);
        pItem->SetName("hall", 0);
        pItem->SetSize({5, 4, 3});
        pItem->SetGridType(1);
        pItem->CreateSelectable(-1);
        return pItem;
    }
};

CItem* MakeCut(ISimulation& simulation, const QVector<qint64>& blockIds)
{
    CItem* const pItem = simulation.CreateItem(CUT_TYPE, 0, true, 0, -1, 0);
    pItem->SetParentId(blockIds.value(0, -1), true);
    pItem->CreateSelectable(-1);
    return pItem;
}

constexpr SOverrideField CUT_FIELDS[] = {{"constantValue", OverrideIndices}};

const SKindRow OWN_KINDS[] = {
    {.eKind = CUT_KIND,
     .sList = "cuts",
     .sName = "Cut",
     .nCapabilities = CapabilitySums,
     .MakeItem = MakeCut,
     .MakeSelectable = [](CItem& item, qint64, qint64 nViewId) -> ISelectable* {
         return new CSurfaceSelectable(item, nViewId, CUT_KIND);
     },
     .sOverrideHead = "cut",
     .overrides = CUT_FIELDS},
    {.eKind = WALL_KIND,
     .bUnderBlock = true,
     .sList = "walls",
     .sName = "Wall",
     .MakeSelectable = [](CItem& item, qint64 nPartId, qint64 nViewId) -> ISelectable* {
         return new CWall(item, nPartId, nViewId);
     }},
};

class OwnKinds : public DisplayCase
{
protected:
    OwnKinds()
    {
        static const bool s_bAdded = (AddKinds(OWN_KINDS), true);
        Q_UNUSED(s_bAdded);
        m_pOther = NewCase();
    }
    /** Another case in the view, whose items have other ids. */
    CKindSimulation* NewCase()
    {
        auto* const pCase = new CKindSimulation;
        CSimulationManager::Instance().AddSimulation(pCase, VIEW);
        for (int n = 0; n < 3; ++n)
            pCase->CreateItem(9, 0, true, 0, -1, 0);
        CItem* const pBlock = pCase->CreateItem(KindBlock, 0, true, 0, -1, 0);
        pBlock->SetName("Block 2", 0);
        pBlock->SetSize({5, 4, 3});
        pBlock->SetGridType(1);
        pBlock->CreateSelectable(VIEW);
        return pCase;
    }
    static QVector<ISelectable*> OfKind(const ISimulation& simulation, qint64 nKind)
    {
        QVector<ISelectable*> found;
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, simulation.GetId()))
            if (p->typeId() == nKind)
                found.append(p);
        return found;
    }
    static QByteArray StateOf(const ISimulation& simulation)
    {
        return TakeViewState(simulation, VIEW).ToBytes();
    }
    static void ShowState(ISimulation& simulation, const QByteArray& bytes, double dVersion = 1.0)
    {
        SViewState state;
        ASSERT_TRUE(state.FromBytes(bytes));
        ApplyViewState(simulation, state, VIEW, dVersion);
    }

    CKindSimulation* m_pOther = nullptr;
};

} // namespace

TEST_F(OwnKinds, OneThatIsARowStandsInFilesAndIsMadeFromThem)
{
    const CItem* const pBlock = m_pOther->GetBlocks().first();
    CItem* const pCut = FindKind(CUT_KIND)->MakeItem(*m_pOther, {pBlock->GetId()});
    auto* const pShown = static_cast<CSurfaceSelectable*>(pCut->GetSelectable(VIEW));
    pShown->setRanges({1, 1, 1}, {5, 4, 3});
    pShown->setConstantValue(2);
    pShown->apply();
    pShown->setAlphaValue(0.5);
    EXPECT_TRUE(Get(*pShown, SelectableKey::CAN_INTEGRATE_FORCE));
    EXPECT_FALSE(Get(*pShown, SelectableKey::HAS_LEGEND));

    SOverridable values{TakeViewJson(*m_pOther, VIEW), {}, {}};
    const QJsonObject entry = values.display["cuts"].toArray()[0].toObject();
    EXPECT_EQ(entry["itemNames"], QJsonArray{"Block 2"});
    EXPECT_EQ(DisplayOverrides::Build(values)["cut.0.constantValue"], (QJsonArray{1, 1, 2}));
    EXPECT_TRUE(DisplayOverrides::Apply({{"cut.0.constantValue", QJsonArray{1, 1, 3}}}, values).isEmpty());
    EXPECT_EQ(DisplayOverrides::Apply({{"cut.1.constantValue", 0}}, values),
              QStringList("cut index 1 out of range"));

    const QByteArray state = StateOf(*m_pOther);
    CKindSimulation* const pNew = NewCase();
    ASSERT_TRUE(ApplyViewJson(*pNew, values.display, VIEW));
    ASSERT_EQ(OfKind(*pNew, CUT_KIND).size(), 1);
    EXPECT_EQ(OfKind(*pNew, CUT_KIND)[0]->name(), "Surface K = 3 [Block 2]")
        << "made in its block, as edited";
    EXPECT_EQ(OfKind(*pNew, CUT_KIND)[0]->alphaValue(), 0.5);
    ASSERT_TRUE(ApplyViewJson(*pNew, values.display, VIEW));
    EXPECT_EQ(OfKind(*pNew, CUT_KIND).size(), 1) << "once";

    CKindSimulation* const pThird = NewCase();
    ShowState(*pThird, state);
    ASSERT_EQ(OfKind(*pThird, CUT_KIND).size(), 1);
    EXPECT_EQ(OfKind(*pThird, CUT_KIND)[0]->name(), "Surface K = 2 [Block 2]");
}

TEST_F(OwnKinds, PartsOfAnItemAreShownAndFoundAgainByTheirNames)
{
    CItem* const pHall = m_pOther->AddWalled();
    ISelectable* const pCeiling = pHall->GetSelectable(VIEW, 3);
    ASSERT_NE(pCeiling, nullptr);
    EXPECT_EQ(pCeiling->name(), "ceiling");
    EXPECT_TRUE(pCeiling->isDescendantOf(pHall->GetSelectable(VIEW)));
    EXPECT_EQ(pHall->GetSelectable(VIEW)->typeId(), KindBlock);
    EXPECT_EQ(pHall->GetSelectable(VIEW, 4), nullptr);
    pCeiling->setAlphaValue(0.25);
    const QJsonObject json = TakeViewJson(*m_pOther, VIEW);
    const QByteArray state = StateOf(*m_pOther);
    pCeiling->setAlphaValue(1.0);
    ShowState(*m_pOther, state, SESSION_VERSION);
    EXPECT_EQ(pCeiling->alphaValue(), 0.25);
    EXPECT_EQ(pHall->GetSelectable(VIEW, 2)->alphaValue(), 1.0);
    EXPECT_EQ(StateOf(*m_pOther), state);

    const auto alphaOfCeiling = [&](const auto& show) {
        CKindSimulation* const pNew = NewCase();
        pNew->CreateItem(9, 0, true, 0, -1, 0);
        const CItem* const pNewHall = pNew->AddWalled();
        show(*pNew);
        return pNewHall->GetSelectable(VIEW, 3)->alphaValue() +
               pNewHall->GetSelectable(VIEW, 2)->alphaValue();
    };
    EXPECT_EQ(alphaOfCeiling([&](auto& simulation) { ShowState(simulation, state); }), 1.25);
    EXPECT_EQ(alphaOfCeiling([&](auto& simulation) { ApplyViewJson(simulation, json, VIEW); }), 1.25);
    pHall->DeleteSelectable(VIEW);
    EXPECT_TRUE(OfKind(*m_pOther, WALL_KIND).isEmpty()) << "they go with the whole";
}

TEST_F(OwnKinds, WhatIsntKnownStaysWithTheViewAndIsWrittenBack)
{
    const QByteArray former = StateOf(*m_pOther);
    QJsonObject json = TakeViewJson(*m_pOther, VIEW);
    json["streamlines"] = QJsonArray{QJsonObject{{"showSeeds", true}}};
    json["lights"] = QJsonObject{{"sun", 1}};
    QJsonObject block = json["meshBlocks"].toArray()[0].toObject();
    QJsonObject display = block["disp"].toObject();
    display["clouds"] = QJsonArray{7};
    block["disp"] = display;
    json["meshBlocks"] = QJsonArray{block};
    ASSERT_TRUE(ApplyViewJson(*m_pOther, json, VIEW));
    EXPECT_EQ(TakeViewJson(*m_pOther, VIEW), json);
    EXPECT_TRUE(DisplayOverrides::Build({json, {}, {}}).contains("streamline.0.showSeeds"));

    SViewState state;
    ASSERT_TRUE(state.FromBytes(StateOf(*m_pOther)));
    SViewState::SShown later;
    later.nItemId = 77;
    later.nKind = 1LL << 40;
    later.nPartId = 5;
    later.display = "of a later version";
    state.shown.append(later);
    ShowState(*m_pOther, former);
    EXPECT_EQ(StateOf(*m_pOther), former) << "a state says all";
    EXPECT_FALSE(TakeViewJson(*m_pOther, VIEW).contains("lights"));
    ShowState(*m_pOther, state.ToBytes());
    EXPECT_EQ(StateOf(*m_pOther), state.ToBytes());
    EXPECT_EQ(TakeViewJson(*m_pOther, VIEW), json);
    CSelectableManager::Instance().RemovePair(VIEW, m_pOther->GetId());
    EXPECT_TRUE(CSelectableManager::Instance().Kept(VIEW, m_pOther->GetId()).members.isEmpty());
}
