#include "frame/replacefile.h"

#include <QFileInfo>
#include <QSaveFile>

bool ReplaceFile(const QString& sFileName, const QByteArray& bytes)
{
    const QFileInfo former(sFileName);
    if (former.exists() && !former.isFile())
        return false; // a device would make way for a file
    QSaveFile file(sFileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
