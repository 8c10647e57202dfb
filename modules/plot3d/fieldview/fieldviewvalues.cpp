#include "modules/plot3d/fieldview/fieldviewvalues.h"

#include <QStringList>

#include <cmath>

QString UnquotedFieldView(const QString& sValue)
{
    const bool bQuoted = sValue.size() >= 2 && sValue.startsWith('"') && sValue.endsWith('"');
    return bQuoted ? sValue.mid(1, sValue.size() - 2) : sValue;
}

QVector<double> FieldViewNumbers(const QString& sValue)
{
    QVector<double> numbers;
    for (const QString& sPart : sValue.split(' ', Qt::SkipEmptyParts)) {
        bool bNumber = false;
        numbers.append(sPart.toDouble(&bNumber));
        if (!bNumber || !std::isfinite(numbers.last()))
            return {};
    }
    return numbers;
}

std::optional<qint64> FieldViewIndex(const QString& sValue)
{
    bool bNumber = false;
    const int nIndex = sValue.toInt(&bNumber);
    return bNumber && nIndex >= 1 ? std::optional<qint64>(nIndex) : std::nullopt;
}

bool TakeFieldView(const QString& sValue, double& dNumber)
{
    const QVector<double> numbers = FieldViewNumbers(sValue);
    if (numbers.size() != 1)
        return false;
    dNumber = numbers[0];
    return true;
}

bool TakeFieldView(const QString& sValue, int& nNumber)
{
    bool bNumber = false;
    const int nRead = sValue.toInt(&bNumber);
    if (bNumber)
        nNumber = nRead;
    return bNumber;
}

bool TakeFieldView(const QString& sValue, bool& bFlag)
{
    int nFlag = 0;
    const bool bTaken = TakeFieldView(sValue, nFlag);
    if (bTaken)
        bFlag = nFlag != 0;
    return bTaken;
}

bool TakeFieldView(const QString& sValue, DVector3D& point)
{
    const QVector<double> numbers = FieldViewNumbers(sValue);
    if (numbers.size() != 3)
        return false;
    point = {numbers[0], numbers[1], numbers[2]};
    return true;
}

bool TakeFieldView(const QString& sValue, std::optional<SValueRange>& range)
{
    const QVector<double> numbers = FieldViewNumbers(sValue);
    if (numbers.size() != 2 || !(numbers[0] <= numbers[1]))
        return false;
    range = SValueRange{numbers[0], numbers[1]};
    return true;
}
