#pragma once

#include "data/values/valuerange.h"
#include "frame/vector3d.h"

#include <QString>
#include <QVector>

#include <iterator>
#include <optional>

// What stands behind the colon of a line. A value that isn't what it should be is left as it was.

/** Without the quotes round it. */
QString UnquotedFieldView(const QString& sValue);

/** The numbers of a value; empty if one of them isn't any, or isn't finite. */
QVector<double> FieldViewNumbers(const QString& sValue);

/** One-based; "*" is nothing: all. */
std::optional<qint64> FieldViewIndex(const QString& sValue);

bool TakeFieldView(const QString& sValue, double& dNumber);
bool TakeFieldView(const QString& sValue, int& nNumber);
/** A number: 0 is false. */
bool TakeFieldView(const QString& sValue, bool& bFlag);
bool TakeFieldView(const QString& sValue, DVector3D& point);
/** Least and greatest value, in this order. */
bool TakeFieldView(const QString& sValue, std::optional<SValueRange>& range);

template <class Value> bool TakeFieldView(const QString& sValue, std::optional<Value>& value)
{
    Value read{};
    if (!TakeFieldView(sValue, read))
        return false;
    value = read;
    return true;
}

/** A key, in small letters and without its colon, and what becomes of its value; false for one of no use. */
template <class Target> struct SFieldViewRow
{
    const char* sKey;
    bool (*Take)(Target& target, const QString& sValue);
};

template <class Target, auto pMember> bool TakeFieldViewMember(Target& target, const QString& sValue)
{
    return TakeFieldView(sValue, target.*pMember);
}

/** False for a key that isn't in the table, and for a value of no use. */
template <class Target, size_t nRows>
bool TakeFieldViewRow(const SFieldViewRow<Target> (&rows)[nRows], Target& target, const QString& sKey,
                      const QString& sValue)
{
    for (const SFieldViewRow<Target>& row : rows)
        if (sKey == row.sKey)
            return row.Take(target, sValue);
    return false;
}
