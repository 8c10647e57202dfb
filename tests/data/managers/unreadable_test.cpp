// Data files that go, break and come back while a case is open.
#include "data/grids/savegridtask.h"
#include "data/grids/searchtree.h"
#include "data/variables/expressionvariable.h"
#include "frame/memory/memorymanager.h"
#include "tests/support/files.h"
#include "tests/support/plot3dcasefixture.h"
#include "tests/support/testcases.h"

#include <QDir>
#include <QFile>

namespace {

/** What may become of a file. */
enum Damage_e { Removed, CutShort, Unopenable, Replaced };

class Unreadable : public Plot3DCaseFixture, public testing::WithParamInterface<Damage_e>
{
protected:
    Unreadable()
    {
        OpenTwoBlocks();
        m_pFormula = new CExpressionVariable(SIMULATION, true);
        m_pFormula->SetName("double");
        m_pFormula->SetScope({Id("R")});
        EXPECT_TRUE(m_pFormula->SetExpression("2 * max(<R>, 0)", false, false));
    }

    /** Whatever is in memory goes, so that the next read asks the file. */
    void Damage(const QString& sFileName)
    {
        CMemoryManager::Instance().FreeAll();
        m_bytes = Files::Read(sFileName);
        QFile::remove(sFileName);
        if (GetParam() == CutShort)
            Files::Write(sFileName, m_bytes.left(m_bytes.size() - 1000));
        else if (GetParam() == Unopenable)
            QDir().mkdir(sFileName);
        else if (GetParam() == Replaced)
            Files::Write(sFileName, "something else");
    }
    void Restore(const QString& sFileName)
    {
        if (GetParam() == Unopenable)
            QDir().rmdir(sFileName);
        Files::Write(sFileName, m_bytes);
    }
    /** Of the first point of block 2. */
    LoadStatus_e Read(const char* sName, double& dValue)
    {
        return Field(sName, 2)->FillValues({{1, 1, 1}, {1, 1, 1}}, {&dValue, 1});
    }
    std::optional<SValueRange> Range(const char* sName)
    {
        return CVariableManager::Instance().GetVariable(Id(sName))->GetGlobalRange(1, SIMULATION, -1);
    }

    const CTestCases m_cases;
    const QString m_sQ = m_folder.filePath("case.q"), m_sGrid = m_folder.filePath("case.x");
    QByteArray m_bytes;
    CExpressionVariable* m_pFormula = nullptr;
};

INSTANTIATE_TEST_SUITE_P(All, Unreadable, testing::Values(Removed, CutShort, Unopenable, Replaced));

} // namespace

TEST_P(Unreadable, AFieldHasNoValuesAndNoRangeUntilItsFileIsBack)
{
    const auto before = Range("R");
    double dBefore = 0.0, dValue = 0.0;
    ASSERT_EQ(Read("double", dBefore), LoadOk);
    for (const bool bRead : {true, false}) { // its range was known before, and it wasn't
        if (!bRead)
            m_pFormula->InvalidateRange();
        Damage(m_sQ);
        for (const char* const sName : {"R", "double"}) {
            EXPECT_NE(Read(sName, dValue), LoadOk) << sName;
            EXPECT_EQ(Field(sName, 2)->GetValue(IVector3D{1, 1, 1}), NO_VALUE) << sName;
            EXPECT_FALSE(Field(sName, 2)->GetRange(0, true)) << sName;
        }
        CVariableManager::Instance().GetVariable(Id("R"))->InvalidateRange();
        EXPECT_FALSE(Range("R"));
        EXPECT_FALSE(Range("double"));
        EXPECT_EQ(Read("X", dValue), LoadOk) << "the grid is there";
        Restore(m_sQ);
        EXPECT_EQ(Range("R"), before);
        EXPECT_EQ(Read("double", dValue), LoadOk);
        EXPECT_EQ(dValue, dBefore);
    }
}

TEST_P(Unreadable, AGridHasNoPointsAndIsNotWrittenUntilItsFileIsBack)
{
    /** Hears of the end of a task. */
    class CCreator : public CTaskCreator
    {
    public:
        void TaskFinished(qlonglong, TaskStatus_e eStatus) override { m_eStatus = eStatus; }
        int m_eStatus = -1;
    } creator;
    const DVector3D before = Grid(2)->GetPoint(2, 2, 2);
    const auto range = Grid(2)->GetRange(1, true);
    CGridManager::Instance().FlipAxis(SIMULATION, 2, 0); // an array of its own is to be exported
    const QString sTarget = m_folder.filePath("saved.x");
    const auto save = [&] {
        std::vector<CSaveGridTask::SPart> parts;
        parts.push_back({Grid(2), {}});
        (new CSaveGridTask(&creator, sTarget, 2, std::move(parts)))->Start();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return creator.m_eStatus;
    };
    Damage(m_sGrid);
    std::vector<double> x(27), y = x, z = x;
    const auto fill = [&] { return Grid(2)->FillPoints({{1, 1, 1}, {3, 3, 3}}, {x, y, z}); };
    EXPECT_NE(fill(), LoadOk);
    EXPECT_FALSE(Grid(2)->GetRange(1, true));
    EXPECT_EQ(Grid(2)->FindCell(before), (IVector3D{-1, -1, -1}));
    EXPECT_FALSE(Grid(2)->GetSearchTree());
    EXPECT_EQ(save(), TaskFailed);
    EXPECT_FALSE(QFile::exists(sTarget));
    Restore(m_sGrid);
    EXPECT_EQ(fill(), LoadOk);
    EXPECT_EQ(Grid(2)->GetPoint(2, 2, 2), before);
    EXPECT_EQ(Grid(2)->GetRange(1, true), range);
    EXPECT_EQ(save(), TaskOk);
}

TEST_P(Unreadable, AHeldFieldIsReadAnewOnceItIsGivenBack)
{
    Damage(m_sQ);
    double dValue = 0.0;
    auto pHeld = Field("R", 2);
    EXPECT_NE(pHeld->FillValues({{1, 1, 1}, {1, 1, 1}}, {&dValue, 1}), LoadOk);
    Restore(m_sQ);
    Field("R", 2).reset(); // looks, and must leave alone what somebody reads
    EXPECT_NE(pHeld->FillValues({{1, 1, 1}, {1, 1, 1}}, {&dValue, 1}), LoadOk);
    pHeld.reset();
    EXPECT_EQ(Read("R", dValue), LoadOk);
}
