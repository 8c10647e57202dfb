#include "cases/blocks/restorableitems.h"

#include "frame/packs/bytestream.h"

QByteArray CRestorableItems::ToState(const QByteArray& items, const QByteArray& views) const
{
    CByteWriter writer;
    writer.Write(m_nLoads);
    writer.Write(items);
    writer.Write(views);
    return writer.Take();
}

std::optional<CRestorableItems::SState> CRestorableItems::FromState(const QByteArray& bytes) const
{
    CByteReader reader(bytes);
    SState state;
    qint64 nLoads = 0;
    if (!reader.Read(nLoads) || !reader.Read(state.items) || !reader.Read(state.views))
        return {};
    state.bOfThisLoad = nLoads == m_nLoads;
    return state;
}
