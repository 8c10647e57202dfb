#include "cases/blocks/keptdisplays.h"

#include "cases/display/viewstate.h"
#include "cases/files/casefile.h"

#include <utility>

void CKeptDisplays::Keep(qint64 nViewId, const QByteArray& stored, const QByteArray& shown)
{
    m_kept[nViewId] = {stored, shown};
}

QByteArray CKeptDisplays::ToStore(qint64 nViewId, const QByteArray& shown) const
{
    const auto kept = m_kept.constFind(nViewId);
    return kept != m_kept.cend() && kept->shown == shown ? kept->stored : shown;
}

void CKeptDisplays::Show(ISimulation& simulation)
{
    const auto all = std::exchange(m_kept, {});
    for (auto kept = all.cbegin(); kept != all.cend(); ++kept) {
        SViewState stored, shown;
        const SViewState now = TakeViewState(simulation, kept.key());
        if (!stored.FromBytes(kept->stored) || !shown.FromBytes(kept->shown) || shown.shown != now.shown)
            continue;
        const double dTime = stored.pair.dTime;
        const bool bTransient = stored.pair.bTransient;
        stored.pair = now.pair; // these could be changed without the data
        stored.pair.dTime = dTime;
        stored.pair.bTransient = bTransient;
        ApplyViewState(simulation, stored, kept.key(), SCaseFile::VERSION);
    }
}
