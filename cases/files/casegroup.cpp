#include "cases/files/casegroup.h"

#include <QFileInfo>
#include <QProcess>

void ApplyCaseGroup(const QString& sFileName, const QString& sGroup)
{
    const QFileInfo file(sFileName);
    if (sGroup.isEmpty() || !file.exists())
        return;
    QString sUser = qEnvironmentVariable("USER");
    if (sUser.isEmpty())
        sUser = qEnvironmentVariable("USERNAME");
    if (file.owner() != sUser || file.group() == sGroup)
        return;
    QProcess::execute("chown", {"-R", ":" + sGroup, file.absoluteFilePath()});
    QProcess::execute("chmod", {"770", file.absoluteFilePath()});
}
