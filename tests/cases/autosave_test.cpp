// What is left of a case when the program dies.
#include "cases/autosave/autosaver.h"
#include "cases/files/casestorage.h"
#include "tests/support/openingmodule.h"
#include "tests/support/simulationfixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <random>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const SKey<qint64> COUNTER{"Test.Counter", 0};

class Autosave : public SimulationFixture
{
protected:
    Autosave() { COpeningModule::Register(); }
    /** A case that was never saved, as after a recovery. */
    CTestSimulation* Edited()
    {
        CTestSimulation* const pSimulation = Add();
        pSimulation->SetSavedData("unsaved");
        return pSimulation;
    }
    QString Root() const { return m_folder.filePath("autosave"); }
    QString CasePath() const { return m_folder.filePath("case.zento"); }
    QStringList Kept() const
    {
        QStringList sFileList;
        const QDir root(Root());
        for (const QString& sInstance : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            sFileList += QDir(root.filePath(sInstance)).entryList(QDir::Files);
        return sFileList;
    }
    /** The counter in the bytes of a case file; -1 if they are none. */
    static qint64 CounterIn(const QByteArray& bytes)
    {
        SCaseFile file;
        CTestSimulation simulation;
        return file.FromBytes(bytes) == StoredOk && simulation.FromBytes(file.data, file.dDataVersion)
                   ? Get(simulation, COUNTER)
                   : -1;
    }
    qint64 CounterInFile() const
    {
        QByteArray bytes;
        return ReadWholeFile(CasePath(), bytes) ? CounterIn(bytes) : 0;
    }

    QTemporaryDir m_folder;
};

/** What the process that will be killed has surely done. */
struct SDone
{
    volatile qint64 nKept = 0;
};

} // namespace

TEST_F(Autosave, WhatNobodySavedIsKeptAndNothingElse)
{
    CAutosaver autosaver(Root());
    CTestSimulation* const pNew = Add();
    Add();                          // nobody edits it
    Add()->SetFilePath(CasePath()); // it hasn't been read yet
    pNew->BeginUndoStep();
    Set(*pNew, COUNTER, 5);
    pNew->EndUndoStep();
    CTestSimulation* const pSaved = Add();
    ASSERT_TRUE(SaveCase(*pSaved, "Plot3D", CasePath()));
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept(), QStringList{QString("%1.autosave").arg(pNew->GetId())}) << "never saved";
    Set(*pSaved, COUNTER, 1);
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept().size(), 2);
    EXPECT_TRUE(CLostCases(Root()).GetCases().isEmpty()) << "an instance that runs has lost nothing";

    ASSERT_TRUE(SaveCase(*pSaved, "Plot3D", CasePath()));
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept().size(), 1);
    m_manager.RemoveAllViews();
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept(), QStringList()) << "closed by its user";
    CTestSimulation* const pLast = Edited();
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept().size(), 1);
    for (const QString& sInstance : QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        QDir(Root() + '/' + sInstance).removeRecursively();
    Set(*pLast, COUNTER, 2);
    EXPECT_TRUE(autosaver.Run());
    EXPECT_EQ(Kept().size(), 1) << "its folder is made anew";
    autosaver.End();
    EXPECT_TRUE(QDir(Root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(Autosave, AnInstanceThatDiedLeavesItsCasesToOneOther)
{
    {
        CAutosaver died(Root());
        Set(*Edited(), COUNTER, 7);
        EXPECT_TRUE(died.Run());
    }
    const CLostCases lost(Root());
    ASSERT_EQ(lost.GetCases().size(), 1);
    EXPECT_TRUE(CLostCases(Root()).GetCases().isEmpty()) << "somebody is at it";
    const SAutosaveFile& content = lost.GetCases().first().content;
    EXPECT_EQ(content.sModule, "Plot3D");
    EXPECT_EQ(content.sFilePath, "");
    EXPECT_EQ(CounterIn(content.caseFile), 7);
    CLostCases::Remove(lost.GetCases().first());
    EXPECT_EQ(Kept(), QStringList());
}

// Edits, automatic saves and saves, killed at 100 random moments: the case file is always a whole one, and of
// what was kept nothing is lost.
TEST_F(Autosave, KilledAtAnyMomentTheLastKeptStateIsThere)
{
    auto* const pDone = static_cast<SDone*>(
        mmap(nullptr, sizeof(SDone), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(pDone, MAP_FAILED);
    std::mt19937 random(20261125);
    std::uniform_int_distribution<int> delay(200, 12'000); // [us]
    int nLost = 0;
    qint64 nStart = 0;
    CTestSimulation* const pSimulation = Edited();
    for (int nRun = 0; nRun < 100; ++nRun) {
        const qint64 nBefore = CounterInFile();
        pDone->nKept = nBefore;
        const pid_t nChild = fork();
        ASSERT_GE(nChild, 0);
        if (nChild == 0) {
            CAutosaver autosaver(Root());
            for (qint64 n = nStart + 1;; ++n) {
                Set(*pSimulation, COUNTER, n);
                if (!autosaver.Run() || (n % 3 == 0 && !SaveCase(*pSimulation, "Plot3D", CasePath())))
                    _exit(1);
                pDone->nKept = n;
            }
        }
        // Every other process gets as far as its first copy, however busy the machine is.
        for (int n = 0; nRun % 2 && pDone->nKept == nBefore && n < 10'000; ++n)
            usleep(100);
        usleep(useconds_t(delay(random)));
        kill(nChild, SIGKILL);
        int nStatus = 0;
        waitpid(nChild, &nStatus, 0);
        ASSERT_TRUE(WIFSIGNALED(nStatus)) << "a save failed";
        qint64 nBest = CounterInFile();
        ASSERT_GE(nBest, 0) << "half a case file";
        const CLostCases lost(Root());
        for (const CLostCases::SCase& lostCase : lost.GetCases()) {
            ASSERT_GE(CounterIn(lostCase.content.caseFile), 0);
            nBest = std::max(nBest, CounterIn(lostCase.content.caseFile));
            CLostCases::Remove(lostCase);
            ++nLost;
        }
        ASSERT_GE(nBest, qint64(pDone->nKept)) << "run " << nRun;
        nStart = nBest;
    }
    EXPECT_GT(nLost, 10);
    EXPECT_TRUE(QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty()) << "litter";
    munmap(pDone, sizeof(SDone));
}
