#include "app/batch/batch.h"
#include "app/batch/commands.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

namespace {
constexpr SBatchCommand COMMANDS[] = {
    {"info", "what a file is and what its headers say", RunInfo},
    {"stats", "least, greatest and mean of variables, by block", RunStats},
    {"probe", "values at a grid point or at a place", RunProbe},
    {"render", "a picture of a case", RunRender},
};
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    try {
        return RunBatch(QCoreApplication::arguments().mid(1), COMMANDS);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "zento-batch: %s\n", exception.what());
        return BatchFailed;
    }
}
