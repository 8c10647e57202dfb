#include "tools/rendericons/drawingtable.h"

#include <QFile>
#include <QSet>
#include <QStringList>

namespace {

/** @return false when the words aren't a row */
bool ReadRow(const QStringList& words, SDrawingRow& row)
{
    if (words.size() < 2 || words.size() > 3)
        return false;
    const QString sExtra = words.value(2);
    row = {words[0], words[1], sExtra.startsWith('#') ? sExtra : QString(), 0};
    if (sExtra.endsWith("px"))
        row.nSide = sExtra.chopped(2).toInt();
    return sExtra.isEmpty() || !row.sColor.isEmpty() || row.nSide > 0;
}

} // namespace

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
        SDrawingRow row;
        if (!ReadRow(sLine.split(' '), row))
            return {{}, QString(":%1: expected a name, a source and perhaps a colour or a size").arg(nLine)};
        if (names.contains(row.sName))
            return {{}, QString(":%1: %2 stands twice").arg(nLine).arg(row.sName)};
        names.insert(row.sName);
        table.rows.append(row);
    }
    return table;
}
