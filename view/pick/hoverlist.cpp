#include "view/pick/hoverlist.h"

#include "scene/iselectable.h"
#include "scene/selectablemanager.h"

bool CHoverList::Update(const QVector<ISelectable*>& hits)
{
    if (hits == m_list)
        return false;
    const int nAsked = hits.indexOf(Asked());
    m_bAsked = nAsked >= 0;
    m_nIndex = std::max(nAsked, 0);
    m_list = hits;
    SetFlags();
    return true;
}

bool CHoverList::Step()
{
    if (m_list.size() < 2)
        return false;
    m_nIndex = (m_nIndex + 1) % m_list.size();
    m_bAsked = true;
    SetFlags();
    return true;
}

void CHoverList::Forget(ISelectable* pSelectable)
{
    const int nPlace = m_list.indexOf(pSelectable);
    if (nPlace < 0)
        return;
    m_bAsked = m_bAsked && nPlace != m_nIndex;
    m_list.remove(nPlace);
    if (nPlace <= m_nIndex)
        m_nIndex = std::max(m_nIndex - 1, 0);
}

void CHoverList::SetFlags() const
{
    // The item panel hovers too, so that flags can stand on what isn't in the list.
    for (ISelectable* const pSelectable : CSelectableManager::Instance().GetHovered(m_nViewId))
        pSelectable->setHover(false);
    if (ISelectable* const pCurrent = Current())
        pCurrent->setHover(true);
}
