#include "data/variables/storedvariables.h"

#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "frame/preferences/preferences.h"

namespace {

/** Cases with file variables, and formulas of the user in them. */
class StoredVariablesTest : public testing::Test
{
protected:
    StoredVariablesTest()
    {
        for (const char* const sName : {"R", "RU", "u@meanflow; velocity"})
            AddOfFile(1, sName);
    }
    ~StoredVariablesTest() override
    {
        for (const qint64 nSimulation : {1, 2})
            m_manager.RemoveSimulationVariables(nSimulation);
        CPreferences::Instance().SetStoredVariables({});
    }

    qint64 AddOfFile(qint64 nSimulation, const QString& sName, VariableLocation_e eLocation = LocationNode)
    {
        auto* const pVariable = new IVariable(nSimulation, true);
        pVariable->SetName(sName);
        pVariable->SetLocation(eLocation);
        return pVariable->GetId();
    }
    CExpressionVariable* Make(const QString& sName, const QString& sText, bool bTimes = false,
                              bool bSimulations = false)
    {
        auto* const pVariable = new CExpressionVariable(1, true);
        pVariable->SetName(sName);
        pVariable->SetScope(m_manager.ListVariables(1, false) + m_manager.ListVariables(2, false));
        EXPECT_TRUE(pVariable->SetExpression(sText, bSimulations, bTimes)) << sText.toStdString();
        StoredVariables::Keep(*pVariable, sName, pVariable->GetLocation());
        return pVariable;
    }
    QStringList Kept() const
    {
        QStringList sNameList;
        for (const SStoredVariable& stored : CPreferences::Instance().StoredVariables())
            sNameList.append(stored.sName);
        return sNameList;
    }
    /** The text of a variable of the second case; null if it has none of this name. */
    QString Text(const QString& sName, VariableLocation_e eLocation = LocationNode) const
    {
        const IVariable* const p = m_manager.GetVariable(m_manager.FindByName(2, sName, eLocation));
        return p ? p->GetExpressionText(false, true) : QString();
    }

    CVariableManager& m_manager = CVariableManager::Instance();
};

} // namespace

TEST_F(StoredVariablesTest, AnotherCaseGetsThoseWhoseInputsItHas)
{
    Make("speed", "<RU>/<R>");
    Make("rise", "<R@0.5>-<R>", true);
    Make("mean", "<u@meanflow; velocity>*2");
    Make("factor", "2*pi");
    AddOfFile(2, "R");
    EXPECT_EQ(MakeStoredVariables(2).size(), 2); // "RU" and the mean flow are missing
    EXPECT_EQ(Text("rise"), "<R@0.5>-<R>");
    EXPECT_EQ(Text("factor", LocationNone), "2*pi");
    AddOfFile(2, "RU");
    AddOfFile(2, "u@meanflow; velocity");
    EXPECT_EQ(MakeStoredVariables(2).size(), 2); // names that are taken aren't made again
    EXPECT_EQ(Text("speed"), "<RU>/<R>");
    EXPECT_EQ(Text("mean"), "<u@meanflow; velocity>*2");
}

TEST_F(StoredVariablesTest, OneMayRestOnAnotherBehindItAndOnConstants)
{
    CExpressionVariable* const pFirst = Make("first", "<R>");
    Make("second", "<R>+1");
    const qint64 nFactor = Make("factor", "3")->GetId();
    pFirst->SetScope({m_manager.FindByName(1, "second", LocationNode), nFactor});
    ASSERT_TRUE(pFirst->SetExpression("<second>*<factor>", false, false));
    StoredVariables::Keep(*pFirst, "first", LocationNode);
    AddOfFile(2, "R");
    EXPECT_EQ(MakeStoredVariables(2).size(), 3);
    EXPECT_EQ(Text("first"), "<second>*<factor>");
}

TEST_F(StoredVariablesTest, AnInputAtAnotherPlaceIsNone)
{
    Make("double", "2*<R>");
    AddOfFile(2, "R", LocationCell);
    EXPECT_TRUE(MakeStoredVariables(2).isEmpty());
}

TEST_F(StoredVariablesTest, AChangedOneTakesThePlaceOfTheFormerOne)
{
    CExpressionVariable* const pVariable = Make("a", "<R>");
    pVariable->SetName("b");
    StoredVariables::Keep(*pVariable, "a", LocationNode);
    EXPECT_EQ(Kept(), QStringList{"b"});
    pVariable->SetExpression("<R>+", false, false); // not valid: what was kept stays
    EXPECT_FALSE(StoredVariables::Keep(*pVariable, "b", LocationNode));
    EXPECT_EQ(Kept(), QStringList{"b"});
}

TEST_F(StoredVariablesTest, WhatDrawsOnAnotherCaseIsNotKept)
{
    AddOfFile(2, "R");
    Make("difference", "<1@R>-<2@R>", false, true);
    EXPECT_TRUE(Kept().isEmpty());
}

TEST_F(StoredVariablesTest, DeletionReachesWhatIsBuiltOnIt)
{
    const qint64 nFirst = Make("first", "<R>")->GetId();
    Make("second", "<first>*2");
    Make("other", "<RU>");
    StoredVariables::RemoveForGood(nFirst);
    EXPECT_EQ(Kept(), QStringList{"other"});
    EXPECT_EQ(m_manager.FindByName(1, "second", LocationNode), NO_ID);
    EXPECT_NE(m_manager.FindByName(1, "R", LocationNode), NO_ID);
}
