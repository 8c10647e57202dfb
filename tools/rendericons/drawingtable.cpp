#include "tools/rendericons/drawingtable.h"

#include <QFile>
#include <QSet>
#include <QStringList>

SDrawingTable ReadDrawingTable(const QString& sPath)
{
    SDrawingTable table;
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, ": can't be read"};
    QSet<QString> names;
    for (int nLine = 1; !file.atEnd(); ++nLine) {
        const QString sLine = QString::fromUtf8(file.readLine()).simplified();
        if (sLine.isEmpty() || sLine.startsWith('#'))
            continue;
        const QStringList words = sLine.split(' ');
        if (words.size() < 2 || words.size() > 3)
            return {{}, QString(":%1: expected a name, a source and perhaps a colour").arg(nLine)};
        if (names.contains(words[0]))
            return {{}, QString(":%1: %2 stands twice").arg(nLine).arg(words[0])};
        names.insert(words[0]);
        table.rows.append({words[0], words[1], words.value(2)});
    }
    return table;
}
