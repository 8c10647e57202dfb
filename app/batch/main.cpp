#include "app/batch/batch.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    try {
        return RunBatch(QCoreApplication::arguments().mid(1), {});
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "zento-batch: %s\n", exception.what());
        return BatchFailed;
    }
}
