#include "frame/packs/datapropertypack.h"

#include "frame/packs/bytestream.h"

QByteArray CDataPropertyPack::ToBytes() const
{
    CByteWriter writer;
    writer.Write(CDataProperty::ToBytes());
    writer.Write(qint64(m_rows.size()));
    for (const CDataProperty& row : m_rows)
        writer.Write(row.ToBytes());
    return writer.Take();
}

bool CDataPropertyPack::FromBytes(const QByteArray& bytes, double dVersion)
{
    constexpr qint64 ROW_LEAST = 4; // [bytes] the length of a row
    const QByteArray kept = bytes;  // they may be a value of this pack
    CByteReader reader(kept);
    QByteArray part;
    reader.Read(part);
    bool bOk = CDataProperty::FromBytes(part, dVersion);
    qint64 nRows = 0;
    reader.Read(nRows);
    reader.CheckCount(nRows, ROW_LEAST);
    for (qint64 n = 0; n < nRows && reader.Read(part); ++n)
        bOk = ReadRow(part, dVersion) && bOk;
    return bOk && reader.IsOk();
}

bool CDataPropertyPack::ReadRow(const QByteArray& bytes, double dVersion)
{
    CDataProperty row;
    if (!row.FromBytes(bytes, dVersion))
        return false;
    const int nRow = RowIndex(row.Name());
    if (nRow >= 0) {
        row.SetParent(m_rows[nRow].GetParent()); // a file knows no parents
        m_rows[nRow].Assign(row);
    }
    return true;
}

void CDataPropertyPack::AddProperty(const CDataProperty& property)
{
    const int nRow = RowIndex(property.Name());
    if (nRow >= 0)
        m_rows[nRow] = property;
    else
        m_rows.append(property);
}

void CDataPropertyPack::PropertyAboutToChange(QString) {}
void CDataPropertyPack::PropertyChanged(QString, QString) {}

CDataProperty& CDataPropertyPack::FindProperty(const QString& sName)
{
    const int nRow = RowIndex(sName);
    if (nRow >= 0)
        return m_rows[nRow];
    m_fallback = CDataProperty();
    return m_fallback;
}

const CDataProperty& CDataPropertyPack::FindProperty(const QString& sName) const
{
    static const CDataProperty s_none; // what was written into the fallback mustn't show here
    const int nRow = RowIndex(sName);
    return nRow >= 0 ? m_rows[nRow] : s_none;
}

int CDataPropertyPack::RowIndex(const QString& sName) const
{
    for (int n = 0; n < m_rows.size(); ++n)
        if (m_rows[n].Name() == sName)
            return n;
    return -1;
}
