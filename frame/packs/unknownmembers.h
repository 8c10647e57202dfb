#pragma once

#include <QJsonObject>
#include <QSet>

class CByteReader;
class CByteWriter;

/** Members of a JSON object that this version doesn't know: a later one made them, and finds them again. */
class CUnknownMembers
{
public:
    const QJsonObject& Members() const { return m_members; }
    /** Those of an object that was read; a member that it doesn't have stays. */
    void Take(const QJsonObject& read, const QSet<QString>& known);

    /** Behind all else of a record; nothing where there are none. */
    void Write(CByteWriter& writer) const;
    /** What is left of the record; none where that is nothing. */
    void Read(CByteReader& reader);

private:
    QJsonObject m_members;
};
