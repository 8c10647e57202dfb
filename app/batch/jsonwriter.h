#pragma once

#include "frame/vector3d.h"

#include <QByteArray>
#include <QString>

/**
 * Writes one JSON document, key by key, in the order of the calls. Reals have 17 significant digits, so that
 * they read back as the same numbers; NaN and infinities are strings.
 */
class CJsonWriter
{
public:
    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    /** Ahead of each value of an object. */
    void Key(const char* sKey);
    void Value(double dValue);
    void Value(qint64 nValue) { Plain(QByteArray::number(nValue)); }
    void Value(int nValue) { Plain(QByteArray::number(nValue)); }
    void Value(bool bValue) { Plain(bValue ? "true" : "false"); }
    void Value(const QString& sValue);
    void Value(const char* sValue) { Value(QString(sValue)); }
    void Value(const IVector3D& vector);
    void Value(const DVector3D& vector);
    void Null() { Plain("null"); }
    void Raw(const QByteArray& json) { Plain(json); } ///< text that another writer made
    template <class T> void Member(const char* sKey, const T& value)
    {
        Key(sKey);
        Value(value);
    }

    const QByteArray& Text() const { return m_text; }

private:
    void Separate();
    void Plain(const QByteArray& text);
    void Open(char c);
    void Close(char c);

    QByteArray m_text;
    bool m_bFirst = true; // no value yet at this level
    bool m_bAfterKey = false;
};
