#include "frame/packs/packtext.h"

#include <array>
#include <optional>
#include <span>

namespace {
constexpr int DIGITS = 10; // of a real number; what lies behind them is lost in text mode

// The value stays as it was where the text doesn't convert.
bool Convert(const QString& sText, double& dValue)
{
    bool bOk = false;
    const double dRead = sText.toDouble(&bOk);
    dValue = bOk ? dRead : dValue;
    return bOk;
}

bool Convert(const QString& sText, qint64& nValue)
{
    bool bOk = false;
    const qint64 nRead = sText.toLongLong(&bOk, 10);
    nValue = bOk ? nRead : nValue;
    return bOk;
}

bool Convert(const QString& sText, int& nValue)
{
    bool bOk = false;
    const int nRead = sText.toInt(&bOk, 10);
    nValue = bOk ? nRead : nValue;
    return bOk;
}

template <class T> QString Joined(std::span<const T> numbers)
{
    QStringList parts;
    for (const T& number : numbers)
        parts.append(PackText::ToText(number));
    return parts.join(',');
}

template <class T> bool ConvertAll(const QStringList& parts, std::span<T> numbers)
{
    for (size_t n = 0; n < numbers.size(); ++n)
        if (!Convert(parts[int(n)], numbers[n]))
            return false;
    return true;
}

/** The first N numbers of the text, none if there are fewer. */
template <class T, int N>
std::optional<std::array<T, N>> Numbers(const QString& sText, Qt::SplitBehavior eEmpty = Qt::KeepEmptyParts)
{
    const QStringList parts = sText.split(',', eEmpty);
    std::array<T, N> numbers;
    if (parts.size() < N || !ConvertAll(parts, std::span<T>(numbers)))
        return {};
    return numbers;
}

QString Escaped(QString sEntry) { return sEntry.replace("\\", "\\\\").replace(",", "\\,"); }
} // namespace

QString PackText::ToText(double dValue) { return QString::number(dValue, 'g', DIGITS); }
QString PackText::ToText(qint64 nValue) { return QString::number(nValue); }
QString PackText::ToText(bool bValue) { return bValue ? "1" : "0"; }
QString PackText::ToText(const QColor& value) { return value.name(); }
QString PackText::ToText(const QFont& value) { return value.toString(); }
QString PackText::ToText(const STransform& value) { return ToText(value.Matrix()); }

QString PackText::ToText(const QPoint& value)
{
    const qint64 numbers[] = {value.x(), value.y()};
    return Joined<qint64>(numbers);
}

QString PackText::ToText(const QPointF& value)
{
    const double numbers[] = {value.x(), value.y()};
    return Joined<double>(numbers);
}

QString PackText::ToText(const IVector3D& value)
{
    const qint64 numbers[] = {value.i, value.j, value.k};
    return Joined<qint64>(numbers);
}

QString PackText::ToText(const DVector3D& value)
{
    const double numbers[] = {value.x, value.y, value.z};
    return Joined<double>(numbers);
}

QString PackText::ToText(const QVector<qint64>& values)
{
    return Joined<qint64>({values.data(), size_t(values.size())});
}
QString PackText::ToText(const DMatrix4x4& value) { return Joined<double>(value.d); }

QString PackText::ToText(const QStringList& values)
{
    if (values.size() == 1 && values[0].isEmpty())
        return "\\"; // escapes nothing: one empty entry, where an empty text is no entry
    QStringList entries;
    for (const QString& sEntry : values)
        entries.append(Escaped(sEntry));
    return entries.join(',');
}

bool PackText::FromText(const QString& sText, double& dValue) { return Convert(sText, dValue); }
bool PackText::FromText(const QString& sText, qint64& nValue) { return Convert(sText, nValue); }

bool PackText::FromText(const QString& sText, bool& bValue)
{
    qint64 nValue = 0;
    if (!Convert(sText, nValue) || (nValue != 0 && nValue != 1))
        return false;
    bValue = nValue == 1;
    return true;
}

bool PackText::FromText(const QString& sText, QPoint& value)
{
    const auto numbers = Numbers<int, 2>(sText, Qt::SkipEmptyParts);
    if (numbers)
        value = QPoint((*numbers)[0], (*numbers)[1]);
    return numbers.has_value();
}

bool PackText::FromText(const QString& sText, QPointF& value)
{
    const auto numbers = Numbers<double, 2>(sText, Qt::SkipEmptyParts);
    if (numbers)
        value = QPointF((*numbers)[0], (*numbers)[1]);
    return numbers.has_value();
}

bool PackText::FromText(const QString& sText, QColor& value)
{
    if (!QColor::isValidColor(sText))
        return false;
    value = QColor(sText);
    return true;
}

bool PackText::FromText(const QString& sText, QFont& value)
{
    QFont font;
    if (sText.isEmpty() || !font.fromString(sText))
        return false;
    value = font;
    return true;
}

bool PackText::FromText(const QString& sText, QVector<qint64>& values)
{
    if (sText.isEmpty()) {
        values.clear();
        return true;
    }
    const QStringList parts = sText.split(',');
    QVector<qint64> numbers(parts.size());
    if (!ConvertAll<qint64>(parts, {numbers.data(), size_t(numbers.size())}))
        return false;
    values = numbers;
    return true;
}

bool PackText::FromText(const QString& sText, IVector3D& value)
{
    const auto numbers = Numbers<qint64, 3>(sText);
    if (numbers)
        value = {(*numbers)[0], (*numbers)[1], (*numbers)[2]};
    return numbers.has_value();
}

bool PackText::FromText(const QString& sText, DVector3D& value)
{
    const auto numbers = Numbers<double, 3>(sText);
    if (numbers)
        value = {(*numbers)[0], (*numbers)[1], (*numbers)[2]};
    return numbers.has_value();
}

bool PackText::FromText(const QString& sText, QStringList& values)
{
    values.clear();
    if (sText.isEmpty())
        return true;
    QString sEntry = "";
    for (int n = 0; n < sText.size(); ++n) {
        if (sText[n] == ',') {
            values.append(sEntry);
            sEntry = "";
            continue;
        }
        if (sText[n] == '\\' && ++n == sText.size())
            break;
        sEntry += sText[n];
    }
    values.append(sEntry);
    return true;
}

bool PackText::FromText(const QString& sText, DMatrix4x4& value)
{
    const auto numbers = Numbers<double, 16>(sText);
    if (numbers)
        value.d = *numbers;
    return numbers.has_value();
}

bool PackText::FromText(const QString& sText, STransform& value)
{
    DMatrix4x4 matrix;
    const bool bOk = FromText(sText, matrix);
    if (bOk)
        value = STransform(matrix);
    return bOk;
}
