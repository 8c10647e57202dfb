// ISimulation: whether there is something to save.
#include "simulation/isimulation.h"

void ISimulation::NoteSaved()
{
    SetSavedData(ToBytes());
    m_savedViews.clear();
    for (const qint64 nViewId : GetViewIds())
        m_savedViews.insert(nViewId, SaveViewEdits(nViewId));
}

void ISimulation::NoteUnsaved()
{
    SetSavedData("unsaved"); // unlike all that a case can be
    SetSavedDisplay({});
}

bool ISimulation::HasUnsavedEdits() const
{
    if (GetSavedData().isEmpty())
        return GetUndoCount() + GetRedoCount() > 0;
    if (ToBytes() != GetSavedData())
        return true;
    const QVector<qint64> viewIds = GetViewIds();
    return std::any_of(viewIds.begin(), viewIds.end(), [&](qint64 nViewId) {
        const QByteArray edits = SaveViewEdits(nViewId);
        const auto saved = m_savedViews.constFind(nViewId);
        if (saved != m_savedViews.cend())
            return *saved != edits;
        // A view that came later shows what another one showed, as long as nobody edits it.
        return std::find(m_savedViews.begin(), m_savedViews.end(), edits) == m_savedViews.end();
    });
}
