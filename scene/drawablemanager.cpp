#include "scene/drawablemanager.h"

#include "scene/arrange.h"
#include "scene/idrawable.h"

CDrawableManager& CDrawableManager::Instance()
{
    static CDrawableManager* const pManager = new CDrawableManager; // never destroyed, see CMessageSink
    return *pManager;
}

void CDrawableManager::Add(qint64 nViewId, qint64 nSimulationId, IDrawable* pDrawable)
{
    m_pairs[{nViewId, nSimulationId}].append(pDrawable);
}

void CDrawableManager::Remove(IDrawable* pDrawable)
{
    for (auto it = m_pairs.begin(); it != m_pairs.end(); ++it)
        if (const int nIndex = it->lastIndexOf(pDrawable); nIndex >= 0) {
            it->remove(nIndex);
            if (it->isEmpty())
                m_pairs.erase(it);
            return;
        }
}

void CDrawableManager::Arrange(qint64 nViewId, qint64 nSimulationId, const QVector<IDrawable*>& first)
{
    if (const auto found = m_pairs.find({nViewId, nSimulationId}); found != m_pairs.end())
        *found = Arranged(*found, first);
}

IDrawable* CDrawableManager::Find(qint64 nSerial) const
{
    for (const QVector<IDrawable*>& drawables : m_pairs)
        for (IDrawable* const pDrawable : drawables)
            if (nSerial != -1 && pDrawable->serial() == nSerial)
                return pDrawable;
    return nullptr;
}

const QVector<IDrawable*>& CDrawableManager::GetDrawables(qint64 nViewId, qint64 nSimulationId) const
{
    const auto found = m_pairs.constFind({nViewId, nSimulationId});
    return found == m_pairs.cend() ? m_none : *found;
}
