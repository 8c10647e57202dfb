#include "frame/packs/unknownmembers.h"

#include "frame/packs/bytestream.h"

#include <QJsonDocument>

void CUnknownMembers::Take(const QJsonObject& read, const QSet<QString>& known)
{
    for (auto it = read.begin(); it != read.end(); ++it)
        if (!known.contains(it.key()))
            m_members.insert(it.key(), it.value());
}

void CUnknownMembers::Write(CByteWriter& writer) const
{
    if (!m_members.isEmpty())
        writer.Write(QJsonDocument(m_members).toJson(QJsonDocument::Compact));
}

void CUnknownMembers::Read(CByteReader& reader)
{
    m_members = {};
    QByteArray json;
    if (reader.IsOk() && reader.BytesLeft() > 0 && reader.Read(json))
        m_members = QJsonDocument::fromJson(json).object();
}
