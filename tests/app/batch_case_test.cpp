// zento-batch on files, as a script sees it.
#include "app/batch/batch.h"
#include "app/batch/commands.h"
#include "tests/support/files.h"
#include "tests/support/plot3dfile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using Plot3DFixture::Blank;
using Plot3DFixture::Blocks;
using Plot3DFixture::Value;

namespace {

class BatchCase : public testing::Test
{
protected:
    BatchCase()
    {
        const auto blocks = Blocks({{5, 4, 3}, {3, 3, 3}});
        Plot3DFixture::Write(m_sGrid, 26, KindGrid, blocks);
        Plot3DFixture::Write(m_sQ, 49, KindQ, blocks);
    }

    int Run(int (*pCommand)(const QStringList&), const QStringList& sArgumentList)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int nStatus = pCommand(sArgumentList);
        m_output = QByteArray::fromStdString(testing::internal::GetCapturedStdout());
        m_sErrors = QString::fromStdString(testing::internal::GetCapturedStderr());
        m_json = QJsonDocument::fromJson(m_output).object();
        return nStatus;
    }
    QStringList Case(const QStringList& sMore) const
    {
        return QStringList{"--grid", m_sGrid, "--q", m_sQ} + sMore;
    }

    QTemporaryDir m_folder;
    const QString m_sGrid = m_folder.filePath("case.x");
    const QString m_sQ = m_folder.filePath("case.q");
    QByteArray m_output;
    QString m_sErrors;
    QJsonObject m_json;
};

} // namespace

TEST_F(BatchCase, InfoTellsWhatTheHeadersSay)
{
    ASSERT_EQ(Run(RunInfo, {"--grid", m_sGrid, "--solution", m_sQ}), BatchOk) << m_sErrors.toStdString();
    const QJsonObject grid = m_json["files"].toArray()[0].toObject();
    EXPECT_EQ(grid["formatCode"].toInt(), 26);
    EXPECT_EQ(grid["kind"].toString(), "structured");
    EXPECT_TRUE(grid["layout"].toObject()["hasBlank"].toBool());
    EXPECT_EQ(grid["blocks"].toArray()[1].toArray(), QJsonArray({3, 3, 3}));
    EXPECT_FALSE(grid.contains("header"));
    const QJsonObject q = m_json["files"].toArray()[1].toObject();
    EXPECT_EQ(q["role"].toString(), "solution");
    EXPECT_EQ(q["variableCount"].toInt(), 5);
    for (int n = 0; n < 4; ++n)
        EXPECT_EQ(q["header"].toArray()[n].toDouble(), Plot3DFixture::HeaderReal(0, n));
}

TEST_F(BatchCase, AFileThatIsNotIdentifiedIsToldAndFails)
{
    Files::Write(m_sQ, "no such file");
    EXPECT_EQ(Run(RunInfo, {"--grid", m_sGrid, "--solution", m_sQ}), BatchFailed);
    EXPECT_EQ(m_json["files"].toArray().size(), 2);
    EXPECT_EQ(m_json["files"].toArray()[1].toObject()["formatCode"].toInt(-1), 0);
    EXPECT_TRUE(m_json["files"].toArray()[1].toObject()["kind"].isNull());
    EXPECT_EQ(Run(RunStats, Case({"--variable", "R"})), BatchFailed);
    EXPECT_EQ(m_output, "");
    EXPECT_EQ(m_sErrors.count('\n'), 1);
}

TEST_F(BatchCase, StatsLeaveBlankedPointsOutAndTellTheFirstPlace)
{
    ASSERT_EQ(Run(RunStats, Case({"--variable", "RU", "--block", "2"})), BatchOk) << m_sErrors.toStdString();
    double dMin = 1e300, dSum = 0.0;
    qint64 nMin = -1, nCounted = 0;
    for (qint64 n = 0; n < 27; ++n) {
        if (Blank(1, n) == 0)
            continue;
        ++nCounted;
        dSum += Value(1, 1, n);
        if (Value(1, 1, n) < dMin) {
            dMin = Value(1, 1, n);
            nMin = n;
        }
    }
    const QJsonObject block = m_json["variables"].toArray()[0].toObject()["blocks"].toArray()[0].toObject();
    EXPECT_EQ(block["block"].toInt(), 2);
    EXPECT_EQ(block["points"].toInt(), 27);
    EXPECT_EQ(block["counted"].toInt(), nCounted);
    EXPECT_EQ(block["min"].toDouble(), dMin);
    EXPECT_EQ(block["minAt"].toArray(),
              QJsonArray({int(nMin % 3) + 1, int(nMin / 3 % 3) + 1, int(nMin / 9) + 1}));
    EXPECT_DOUBLE_EQ(block["mean"].toDouble(), dSum / double(nCounted));
}

TEST_F(BatchCase, FormulasOfTheUserAreEvaluatedAndErrorsTellTheirPlace)
{
    ASSERT_EQ(Run(RunProbe,
                  Case({"--define", "a=2 * <R>", "--define", "b=<a> + <RU>", "--variable", "b", "--variable",
                        "gamma", "--variable", "Momentum", "--block", "1", "--ijk", "2,1,1"})),
              BatchOk)
        << m_sErrors.toStdString();
    const QJsonObject point = m_json["points"].toArray()[0].toObject();
    EXPECT_EQ(point["xyz"].toArray()[0].toDouble(), Value(0, 0, 1));
    const QJsonArray values = point["values"].toArray();
    EXPECT_EQ(values[0].toObject()["value"].toDouble(), 2 * Value(0, 0, 1) + Value(0, 1, 1));
    EXPECT_EQ(values[1].toObject()["value"].toDouble(), 1.4);
    EXPECT_EQ(values[2].toObject()["value"].toArray()[2].toDouble(), Value(0, 3, 1));
    EXPECT_EQ(Run(RunStats, Case({"--define", "a=2 * * <R>", "--variable", "a"})), BatchUsage);
    EXPECT_TRUE(m_sErrors.contains("character 5")) << m_sErrors.toStdString();
}

TEST_F(BatchCase, AllVariablesAreListedByTheirNames)
{
    ASSERT_EQ(Run(RunStats, Case({"--variable", "?"})), BatchOk);
    const QList<QByteArray> names = m_output.split('\n');
    for (const char* const sName : {"X", "Hole", "R", "RE", "P[Q]", "Cp[Q]", "Velocity", "gamma", "Vinf"})
        EXPECT_TRUE(names.contains(sName)) << sName;
}

TEST_F(BatchCase, WrongUsageIsTwoAndAFileCutShortIsOne)
{
    for (const QStringList& sArgumentList :
         {QStringList{"--variable", "R"}, Case({}), Case({"--variable", "none"}),
          Case({"--variable", "R", "--block", "3"}), Case({"--variable", "R", "--colour"}),
          Case({"--variable"})}) {
        EXPECT_EQ(Run(RunStats, sArgumentList), BatchUsage) << sArgumentList.join(' ').toStdString();
        EXPECT_EQ(m_sErrors.count('\n'), 1);
    }
    EXPECT_EQ(Run(RunProbe, Case({"--variable", "R", "--ijk", "1,1,1"})), BatchUsage) << "of which block?";
    EXPECT_EQ(Run(RunProbe, Case({"--variable", "R", "--block", "2", "--ijk", "4,1,1"})), BatchFailed);
    EXPECT_EQ(Run(RunStats, {"--grid", m_folder.filePath("none"), "--variable", "X"}), BatchFailed);
    const QString sTimings = m_folder.filePath("timings.json");
    EXPECT_EQ(Run(RunStats, Case({"--variable", "R", "--timings", sTimings})), BatchOk);
    EXPECT_GT(QJsonDocument::fromJson(Files::Read(sTimings)).object()["peakBytes"].toDouble(), 1e6);
}
