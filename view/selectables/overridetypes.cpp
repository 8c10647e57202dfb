#include "view/selectables/overridetypes.h"

#include <QJsonArray>

#include <cmath>

namespace {

bool IsArrayOf(const QJsonValue& value, bool (*fits)(const QJsonValue&))
{
    const QJsonArray array = value.toArray();
    return value.isArray() && std::all_of(array.begin(), array.end(), fits);
}
bool IsThreeOf(const QJsonValue& value, bool (*fits)(const QJsonValue&))
{
    return value.toArray().size() == 3 && IsArrayOf(value, fits);
}
bool IsNumber(const QJsonValue& value) { return value.isDouble(); }
bool IsPoint(const QJsonValue& value) { return IsThreeOf(value, IsNumber); }
bool IsInteger(const QJsonValue& value)
{
    return value.isDouble() && std::abs(value.toDouble()) < 1e15 &&
           value.toDouble() == std::floor(value.toDouble());
}
bool IsDirection(const QJsonValue& value)
{
    return IsInteger(value) && value.toDouble() >= 0.0 && value.toDouble() <= 2.0;
}

struct STypeRow
{
    OverrideType_e eType;
    const char* sError;
    bool (*fits)(const QJsonValue&);
};

constexpr STypeRow s_types[] = {
    {OverrideNumber, "'%1': must be a number", IsNumber},
    {OverrideBool, "'%1': must be true/false", [](const QJsonValue& value) { return value.isBool(); }},
    {OverrideString, "'%1': must be a string", [](const QJsonValue& value) { return value.isString(); }},
    {OverridePoint, "'%1': must be [x, y, z]", IsPoint},
    {OverrideDirection, "'%1': must be a number (0=I, 1=J, 2=K)", IsDirection},
    {OverrideIndices, "'%1': must be [i, j, k]",
     [](const QJsonValue& value) { return IsThreeOf(value, IsInteger); }},
    {OverridePoints, "'%1': must be array of [x, y, z]",
     [](const QJsonValue& value) { return IsArrayOf(value, IsPoint); }},
};

const STypeRow& RowOf(OverrideType_e eType)
{
    return *std::find_if(std::begin(s_types), std::end(s_types),
                         [&](const STypeRow& row) { return row.eType == eType; });
}

} // namespace

bool IsOfType(OverrideType_e eType, const QJsonValue& value) { return RowOf(eType).fits(value); }

QString TypeError(const QString& sKey, OverrideType_e eType, const QJsonValue& value)
{
    return IsOfType(eType, value) ? QString() : QString(RowOf(eType).sError).arg(sKey);
}
