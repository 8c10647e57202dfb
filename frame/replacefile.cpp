#include "frame/replacefile.h"

#include <QSaveFile>

bool ReplaceFile(const QString& sFileName, const QByteArray& bytes)
{
    QSaveFile file(sFileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
