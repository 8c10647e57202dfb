// CSelectable: its stored forms.
#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "view/selectables/selectable.h"

#include <QJsonArray>

namespace {
constexpr qint64 LEAST_BLOCK_SIZE = 4; // the length of a byte array
constexpr const char *KIND = "kind", *HIDDEN = "hidden", *SELECTED = "selected", *DRAWABLES = "drawables";
} // namespace

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
    m_unknown.Write(writer);
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
    m_unknown.Read(reader);
    return bRead && reader.IsOk();
}

QJsonObject CSelectable::toJsonBlock() const
{
    QJsonArray drawables;
    for (int n = 0; n < m_drawables.size(); ++n)
        drawables.append(DrawableToJson(n));
    QJsonObject block = m_unknown.Members();
    block[KIND] = double(m_nTypeId);
    block[HIDDEN] = m_bHidden;
    block[SELECTED] = m_bSelected;
    block[DRAWABLES] = drawables;
    return block;
}

bool CSelectable::fromJsonBlock(const QJsonObject& block)
{
    if (ToInteger(block[KIND], m_nTypeId) != m_nTypeId)
        return false;
    m_bHidden = block[HIDDEN].toBool(m_bHidden);
    m_bSelected = block[SELECTED].toBool(m_bSelected);
    const QJsonArray drawables = block[DRAWABLES].toArray();
    if (!drawables.isEmpty())
        PrepareDrawables(drawables.size());
    for (int n = 0; n < std::min(drawables.size(), m_drawables.size()); ++n)
        DrawableFromJson(n, drawables[n].toObject());
    static const QSet<QString> s_known = {KIND, HIDDEN, SELECTED, DRAWABLES};
    m_unknown.Take(block, s_known);
    return true;
}
