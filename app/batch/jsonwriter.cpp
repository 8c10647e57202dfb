#include "app/batch/jsonwriter.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

void CJsonWriter::Separate()
{
    if (!m_bFirst && !m_bAfterKey)
        m_text += ',';
    m_bFirst = m_bAfterKey = false;
}

void CJsonWriter::Plain(const QByteArray& text)
{
    Separate();
    m_text += text;
}

void CJsonWriter::Open(char c)
{
    Separate();
    m_text += c;
    m_bFirst = true;
}

void CJsonWriter::Close(char c)
{
    m_text += c;
    m_bFirst = m_bAfterKey = false;
}

void CJsonWriter::Key(const char* sKey)
{
    Separate();
    m_text += '"';
    m_text += sKey;
    m_text += "\":";
    m_bAfterKey = true;
}

void CJsonWriter::Value(double dValue)
{
    if (std::isfinite(dValue))
        Plain(QByteArray::number(dValue, 'g', 17));
    else
        Value(QString(std::isnan(dValue) ? "nan" : dValue > 0.0 ? "inf" : "-inf"));
}

void CJsonWriter::Value(const QString& sValue)
{
    // Qt knows how to write a string; the brackets round it are cut off.
    const QByteArray array = QJsonDocument(QJsonArray{sValue}).toJson(QJsonDocument::Compact);
    Plain(array.mid(1, array.size() - 2));
}

void CJsonWriter::Value(const IVector3D& vector)
{
    BeginArray();
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        Value(vector[nAxis]);
    EndArray();
}

void CJsonWriter::Value(const DVector3D& vector)
{
    BeginArray();
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        Value(vector[nAxis]);
    EndArray();
}
