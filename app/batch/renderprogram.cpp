// zento-batch render: hands over to the program beside this one that draws.
#include "app/batch/batch.h"
#include "app/batch/becomeprogram.h"
#include "app/batch/commands.h"

#include <QCoreApplication>

int RunRender(const QStringList& sArgumentList)
{
    const QString sProgram = QCoreApplication::applicationDirPath() + "/zento-batch-render";
    BecomeProgram(sProgram, sArgumentList);
    return BatchError(BatchFailed, QString("can't start %1").arg(sProgram));
}
