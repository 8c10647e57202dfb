// CSelectable: its stored forms.
#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "view/selectables/selectable.h"

#include <QJsonArray>

namespace {
constexpr qint64 LEAST_BLOCK_SIZE = 4; // the length of a byte array
}

QByteArray CSelectable::toBinary() const
{
    CByteWriter writer;
    writer.Write(m_nTypeId);
    writer.Write(m_bHidden);
    WriteOwnState(writer);
    writer.Write(qint32(m_drawables.size()));
    for (int n = 0; n < m_drawables.size(); ++n) {
        const qint64 nPlace = writer.BeginBytes();
        WriteDrawable(n, writer);
        writer.EndBytes(nPlace);
    }
    return writer.Take();
}

bool CSelectable::fromBinary(const QByteArray& bytes, double dVersion)
{
    CByteReader reader(bytes);
    qint64 nTypeId = 0;
    if (!reader.Read(nTypeId) || nTypeId != m_nTypeId)
        return false;
    reader.Read(m_bHidden);
    if (!reader.IsOk() || !ReadOwnState(reader))
        return false;
    const qint32 nCount = reader.ReadCount(LEAST_BLOCK_SIZE);
    if (!reader.IsOk())
        return false;
    PrepareDrawables(nCount);
    bool bRead = true;
    for (int n = 0; n < nCount && reader.IsOk(); ++n) {
        QByteArray display;
        if (reader.Read(display) && n < m_drawables.size())
            bRead &= ReadDrawable(n, display, dVersion);
    }
    return bRead && reader.IsOk();
}

QJsonObject CSelectable::toJsonBlock() const
{
    QJsonArray drawables;
    for (int n = 0; n < m_drawables.size(); ++n)
        drawables.append(DrawableToJson(n));
    return {{"kind", double(m_nTypeId)},
            {"hidden", m_bHidden},
            {"selected", m_bSelected},
            {"drawables", drawables}};
}

bool CSelectable::fromJsonBlock(const QJsonObject& block)
{
    if (ToInteger(block["kind"], m_nTypeId) != m_nTypeId)
        return false;
    m_bHidden = block["hidden"].toBool(m_bHidden);
    m_bSelected = block["selected"].toBool(m_bSelected);
    const QJsonArray drawables = block["drawables"].toArray();
    if (!drawables.isEmpty())
        PrepareDrawables(drawables.size());
    for (int n = 0; n < std::min(drawables.size(), m_drawables.size()); ++n)
        DrawableFromJson(n, drawables[n].toObject());
    return true;
}
