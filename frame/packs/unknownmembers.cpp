#include "frame/packs/unknownmembers.h"

#include "frame/packs/bytestream.h"

#include <QJsonDocument>

void CUnknownMembers::Take(const QJsonObject& read, const QSet<QString>& known)
{
    const auto count = std::count_if(known.begin(), known.end(),
                                     [&](const QString& sMember) { return read.contains(sMember); });
    if (count == read.size())
        return; // as nearly all are; to ask is cheaper than to take every name out
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
