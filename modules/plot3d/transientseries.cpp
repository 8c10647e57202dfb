#include "modules/plot3d/transientseries.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

namespace {

/** The names by the number that stands between head and tail. */
QMap<double, QString> NamesByNumber(const QStringList& sNameList, const QString& sHead, const QString& sTail,
                                    const QString& sOwnName)
{
    const QRegularExpression pattern("^" + QRegularExpression::escape(sHead) + "(\\d+)" +
                                     QRegularExpression::escape(sTail) + "$");
    QMap<double, QString> found;
    for (const QString& sName : sNameList) {
        const QRegularExpressionMatch match = pattern.match(sName);
        if (!match.hasMatch())
            continue;
        const double dNumber = match.captured(1).toDouble();
        if (sName == sOwnName || !found.contains(dNumber))
            found.insert(dNumber, sName);
    }
    return found;
}

} // namespace

STransientSeries FindTransientSeries(const QString& sFileName)
{
    static const QRegularExpression s_number("\\d+");
    const QFileInfo file(sFileName);
    const QString sName = file.fileName();
    const QDir directory = file.absoluteDir();
    const QStringList sNameList = directory.entryList(QDir::Files, QDir::Name);

    QMap<double, QString> best;
    for (auto it = s_number.globalMatch(sName); it.hasNext();) {
        const QRegularExpressionMatch number = it.next();
        const QMap<double, QString> found = NamesByNumber(sNameList, sName.left(number.capturedStart()),
                                                          sName.mid(number.capturedEnd()), sName);
        if (found.size() >= best.size())
            best = found;
    }
    STransientSeries series;
    if (best.size() < 2)
        return series;
    for (auto it = best.cbegin(); it != best.cend(); ++it) {
        series.sFileList.append(directory.absoluteFilePath(it.value()));
        series.times.append(it.key());
    }
    return series;
}
