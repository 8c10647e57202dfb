#pragma once

#include "frame/novalue.h"
#include "frame/packs/packkey.h"

/** What a row of a property sheet is edited with, and so what its "Value" is. */
enum PropertyType_e : qint64 {
    PropertyLineEdit = 0,     // text; IS_READ_ONLY, PLACE_HOLDER, VALIDATOR
    PropertyColor = 2,        // colour, by a button
    PropertyFont = 3,         // font, by a button
    PropertyComboBox = 4,     // index from 0 into POSSIBLE_VALUES
    PropertyIconLineEdit = 5, // text, beside a button with ICON; IS_READ_ONLY, PLACE_HOLDER, VALIDATOR
    PropertyButton = 6,       // icon resource of a flat button
    PropertyCheckBox = 7,     // bool
    PropertySpinBox = 8,      // integer in INT_RANGE; SPECIAL_VALUE_TEXT, with a slider if INCLUDE_SLIDER
    PropertySlider = 9,       // real number in REAL_RANGE; IS_INT
    PropertyRangeSlider = 10, // pair of real numbers in REAL_RANGE; IS_INT, INCLUDE_SPIN_BOX
    PropertyLabel = 12,       // nothing but the text
};

namespace PropertyKey {
inline constexpr SKey<const char*> CATEGORY{"Category", ""}; // group of the row in the sheet
inline constexpr SKey<const char*> NAME{"Name", ""};         // unique in the sheet
inline constexpr SKey<const char*> TEXT{"Text", ""};         // the label
inline constexpr SKey<qint64> TYPE{"Property", PropertyLabel};

// The value, by type of the row.
inline constexpr char VALUE[] = "Value";
inline constexpr SKey<const char*> VALUE_TEXT{VALUE, ""};
inline constexpr SKey<const char*> VALUE_ICON{VALUE, ":/Icons/preferences.png"};
inline constexpr SKey<qint64> VALUE_INDEX{VALUE, 0};
inline constexpr SKey<bool> VALUE_CHECKED{VALUE, false};
inline constexpr SKey<qint64> VALUE_INT{VALUE, NO_INT};
inline constexpr SKey<double> VALUE_REAL{VALUE, NO_VALUE};
inline constexpr SKey<QPointF> VALUE_RANGE{VALUE, {NO_VALUE, NO_VALUE}};

inline constexpr SKey<bool> IS_READ_ONLY{"IsReadOnly", true};
inline constexpr SKey<const char*> PLACE_HOLDER{"PlaceHolder", ""};
inline constexpr SKey<qint64> VALIDATOR{"Validator", NO_INT};
inline const SKey<QStringList> POSSIBLE_VALUES{"PossibleValues", {}};
inline constexpr SKey<const char*> ICON{"Icon", ""};
inline constexpr SKey<QPoint> INT_RANGE{"Range", {0, 1}};
inline constexpr SKey<QPointF> REAL_RANGE{"Range", {NO_VALUE, NO_VALUE}};
inline constexpr SKey<const char*> SPECIAL_VALUE_TEXT{"SpecialValueText", ""};
inline constexpr SKey<bool> INCLUDE_SLIDER{"IncludeSlider", true};
inline constexpr SKey<bool> IS_INT{"IsInt", true};
inline constexpr SKey<bool> INCLUDE_SPIN_BOX{"IncludeSpinbox", true};
} // namespace PropertyKey

/**
 * One editable row of a property sheet: a pack in text mode, so that the sheet's editors can move any value
 * as a string. Real numbers keep ten digits.
 */
class CDataProperty : public CDataPack
{
public:
    CDataProperty();
    /** Without a value. */
    CDataProperty(const QString& sCategory, const QString& sName, const QString& sText, PropertyType_e eType);
    /** The value may be of any type that SetValue takes. */
    template <class T>
    CDataProperty(const QString& sCategory, const QString& sName, const QString& sText, PropertyType_e eType,
                  const T& value)
        : CDataProperty(sCategory, sName, sText, eType)
    {
        SetValue(value);
    }

    QString Category() const { return Get(*this, PropertyKey::CATEGORY); }
    QString Name() const { return Get(*this, PropertyKey::NAME); }
    QString Text() const { return Get(*this, PropertyKey::TEXT); }
    /** May be a number that is none of the types, where a file says so. */
    PropertyType_e Type() const { return PropertyType_e(Get(*this, PropertyKey::TYPE)); }

    /**
     * Stores a value under a key of the row in such a way that it reads as it is, whatever the default of the
     * reader. What means "no value" leaves the key without one, so that each reader gets its own default: an
     * empty text or list, NO_INT, NO_VALUE, a colour that isn't valid, the default font.
     */
    void SetValue(const QString& sValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const char* sValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(int nValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(qint64 nValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(double dValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(bool bValue, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const QPoint& value, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const QPointF& value, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const QColor& value, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const QFont& value, const QString& sKey = PropertyKey::VALUE);
    void SetValue(const QStringList& values, const QString& sKey = PropertyKey::VALUE);
};
