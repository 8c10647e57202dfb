// What the next start makes of cases that an instance left when it died.
#include "window/startup/caserecovery.h"

#include "cases/files/casestorage.h"
#include "tests/support/files.h"
#include "tests/support/openingmodule.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const SKey<qint64> COUNTER{"Test.Counter", 0};

class CaseRecovery : public SimulationFixture
{
protected:
    CaseRecovery() { COpeningModule::Register(); }

    /** Saves a case with a counter of 1; the instance dies with 2. */
    void Die()
    {
        CTestSimulation* const pSimulation = Add();
        Set(*pSimulation, COUNTER, 1);
        ASSERT_TRUE(SaveCase(*pSimulation, "Plot3D", m_sCase));
        Set(*pSimulation, COUNTER, 2);
        CAutosaver died(m_sRoot);
        ASSERT_TRUE(died.Run());
        m_manager.RemoveAllViews();
    }
    /** Answers the question of a start, if there is one. */
    void Start(const char* sAnswer)
    {
        CPromptScript user;
        if (*sAnswer)
            user.Press(sAnswer);
        m_recovery.OfferLostCases();
    }
    /** The cases that instances have left. */
    int CountLost() const { return CLostCases(m_sRoot).GetCases().size(); }

    QTemporaryDir m_folder;
    const QString m_sRoot = m_folder.filePath("autosave"), m_sCase = m_folder.filePath("case.zento");
    CCaseRecovery m_recovery{m_sRoot};
};

} // namespace

TEST_F(CaseRecovery, ARecoveredCaseHasItsFileAndItsUnsavedChanges)
{
    Die();
    Start("Skip");
    EXPECT_EQ(CountLost(), 1) << "the next start asks again";
    Start("Recover");
    const ISimulation* const pCase = m_manager.GetLastSimulation();
    ASSERT_NE(pCase, nullptr);
    EXPECT_EQ(Get(*pCase, COUNTER), 2);
    EXPECT_EQ(pCase->GetFilePath(), m_sCase);
    EXPECT_NE(pCase->GetSavedData(), pCase->ToBytes());
    EXPECT_EQ(CountLost(), 0) << "it is kept by this instance now";
    m_recovery.End();
}

TEST_F(CaseRecovery, WhatIsDiscardedOrStandsInItsFileIsGone)
{
    Die();
    Start("Discard");
    EXPECT_EQ(CountLost(), 0);
    Die();
    Files::Write(m_sCase, CLostCases(m_sRoot).GetCases().first().content.caseFile); // it was saved after all
    Start("");
    EXPECT_EQ(CountLost(), 0);
}

TEST_F(CaseRecovery, TheSavedCaseTakesThePlaceOfItsCopyOnlyOnceItIsOpen)
{
    Die();
    Start("Open Saved");
    EXPECT_EQ(CountLost(), 1) << "nobody has opened it";
    QObject::connect(&m_recovery, &CCaseRecovery::SignalOpenSaved, [](const QString& sFileName) {
        CModuleRegistry::Instance().FindByName("Plot3D")->Open(sFileName, 1);
    });
    Start("Open Saved");
    ASSERT_NE(m_manager.GetLastSimulation(), nullptr);
    EXPECT_EQ(Get(*m_manager.GetLastSimulation(), COUNTER), 1);
    EXPECT_EQ(CountLost(), 0);
}

TEST_F(CaseRecovery, WhyACaseCanNotBeRecoveredIsTold)
{
    {
        CAutosaveFolder died(m_sRoot);
        died.Store(1, SAutosaveFile{"Nobody", "wing", "", "content"}.ToBytes());
    }
    CPromptScript user;
    user.Press("Recover");
    user.Press("Ok");
    m_recovery.OfferLostCases();
    EXPECT_EQ(user.Asked().last().sText, "There is no module 'Nobody'");
    EXPECT_EQ(CountLost(), 1);
}
