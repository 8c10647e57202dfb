#include "app/batch/batch.h"

namespace {

const SBatchCommand s_commands[] = {
    {"info", "tells what a file holds", [](const QStringList& sArgumentList) {
         return sArgumentList == QStringList{"--grid", "wing.x"} ? int(BatchOk) : int(BatchFailed);
     }}};

int RunQuietly(const QStringList& sArgumentList, std::string* pOutput = nullptr,
               std::string* pErrors = nullptr)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int nStatus = RunBatch(sArgumentList, s_commands);
    const std::string output = testing::internal::GetCapturedStdout();
    const std::string errors = testing::internal::GetCapturedStderr();
    if (pOutput)
        *pOutput = output;
    if (pErrors)
        *pErrors = errors;
    return nStatus;
}

} // namespace

TEST(Batch, ACommandGetsWhatStandsBehindItAndItsStatusIsTheStatus)
{
    EXPECT_EQ(RunQuietly({"info", "--grid", "wing.x"}), BatchOk);
    EXPECT_EQ(RunQuietly({"info"}), BatchFailed);
}

TEST(Batch, WrongUsageIsOneLineOnStandardErrorAndStatusTwo)
{
    for (const QStringList& sArgumentList : {QStringList{}, {"Info"}, {"--unknown"}}) {
        std::string output, errors;
        EXPECT_EQ(RunQuietly(sArgumentList, &output, &errors), BatchUsage);
        EXPECT_EQ(output, "");
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    }
}

TEST(Batch, HelpListsTheCommands)
{
    std::string output;
    EXPECT_EQ(RunQuietly({"--help"}, &output), BatchOk);
    EXPECT_NE(output.find("  info       tells what a file holds\n"), std::string::npos) << output;
}
