#include "frame/packs/dataproperty.h"

CDataProperty::CDataProperty() : CDataPack(true) {}

CDataProperty::CDataProperty(const QString& sCategory, const QString& sName, const QString& sText,
                             PropertyType_e eType)
    : CDataProperty()
{
    Set(*this, PropertyKey::CATEGORY, sCategory);
    Set(*this, PropertyKey::NAME, sName);
    Set(*this, PropertyKey::TEXT, sText);
    Set(*this, PropertyKey::TYPE, eType);
}

void CDataProperty::SetValue(const QString& sValue, const QString& sKey) { SetString(sKey, sValue, ""); }
void CDataProperty::SetValue(const char* sValue, const QString& sKey) { SetString(sKey, sValue, ""); }
void CDataProperty::SetValue(int nValue, const QString& sKey) { SetInt(sKey, nValue, NO_INT); }
void CDataProperty::SetValue(qint64 nValue, const QString& sKey) { SetInt(sKey, nValue, NO_INT); }
void CDataProperty::SetValue(double dValue, const QString& sKey) { SetDouble(sKey, dValue, NO_VALUE); }
void CDataProperty::SetValue(const QColor& value, const QString& sKey) { SetColor(sKey, value, QColor()); }
void CDataProperty::SetValue(const QFont& value, const QString& sKey) { SetFont(sKey, value, QFont()); }
void CDataProperty::SetValue(const QStringList& values, const QString& sKey)
{
    SetStringList(sKey, values, {});
}

void CDataProperty::SetValue(bool bValue, const QString& sKey)
{
    SetBool(sKey, bValue, !bValue); // never the default, so both values are stored
}

void CDataProperty::SetValue(const QPoint& value, const QString& sKey)
{
    SetPoint(sKey, value, {NO_INT, NO_INT});
}

void CDataProperty::SetValue(const QPointF& value, const QString& sKey)
{
    SetPointF(sKey, value, {NO_VALUE, NO_VALUE});
}
