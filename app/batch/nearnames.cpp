#include "app/batch/nearnames.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace {

constexpr int MOST_NAMES = 5;
constexpr int MOST_SLIPS = 2;
constexpr int FEW_LETTERS = 4; // shorter names are all a few slips apart
constexpr int FAR = 100;

/** Letters to be put in, left out or changed (Levenshtein). */
int CountSlips(const QString& sFrom, const QString& sTo)
{
    QVector<int> row(sTo.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int n = 0; n < sFrom.size(); ++n) {
        int nDiagonal = std::exchange(row[0], n + 1);
        for (int m = 0; m < sTo.size(); ++m) {
            const int nChange = nDiagonal + int(sFrom[n] != sTo[m]);
            nDiagonal = row[m + 1];
            row[m + 1] = std::min({row[m] + 1, row[m + 1] + 1, nChange});
        }
    }
    return row.last();
}

int Distance(const QString& sWritten, const QString& sName)
{
    if (sWritten == sName)
        return 0;
    if (!sWritten.isEmpty() && (sName.startsWith(sWritten) || sWritten.startsWith(sName)))
        return 1;
    const int nSlips = sWritten.size() < FEW_LETTERS ? FAR : CountSlips(sWritten, sName);
    if (nSlips <= MOST_SLIPS)
        return 1 + nSlips;
    return sWritten.size() > 1 && sName.contains(sWritten) ? 2 + MOST_SLIPS : FAR;
}

} // namespace

QStringList NearNames(const QString& sWritten, const QStringList& sNameList)
{
    QVector<QPair<int, QString>> near;
    for (const QString& sName : sNameList)
        if (const int n = Distance(sWritten.toLower(), sName.toLower()); n < FAR)
            near.append({n, sName});
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList sNearList;
    for (const auto& entry : near.mid(0, MOST_NAMES))
        sNearList << entry.second;
    return sNearList;
}

QString NearNamesText(const QString& sWritten, const QStringList& sNameList)
{
    const QStringList sNearList = NearNames(sWritten, sNameList);
    return sNearList.isEmpty() ? QString() : ", near it: " + sNearList.join(", ");
}
