// zento-batch render: hands over to the program beside this one that draws.
#include "app/batch/batch.h"
#include "app/batch/commands.h"

#include <QCoreApplication>

#include <unistd.h>
#include <vector>

int RunRender(const QStringList& sArgumentList)
{
    const QString sProgram = QCoreApplication::applicationDirPath() + "/zento-batch-render";
    std::vector<QByteArray> texts = {sProgram.toLocal8Bit()};
    for (const QString& sArgument : sArgumentList)
        texts.push_back(sArgument.toLocal8Bit());
    std::vector<char*> arguments;
    for (QByteArray& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    return BatchError(BatchFailed, QString("can't start %1").arg(sProgram));
}
