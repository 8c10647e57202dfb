#include "data/managers/timelevels.h"

#include "frame/novalue.h"

#include <algorithm>

namespace {
bool IsBefore(const CTimeLevels::SLevel& level, double dTime) { return level.dTime < dTime; }
} // namespace

qint64 CTimeLevels::Insert(const SLevel& level)
{
    const auto place = std::lower_bound(m_levels.begin(), m_levels.end(), level.dTime, IsBefore);
    if (place != m_levels.end() && place->dTime == level.dTime) {
        const qint64 nFormerId = place->nId;
        *place = level;
        return nFormerId;
    }
    m_levels.insert(place, level);
    return NO_ID;
}

STimeMatch CTimeLevels::At(size_t nLevel, qint64 nSubId) const
{
    const SLevel& level = m_levels[nLevel];
    if (nSubId != NO_ID && nSubId != level.nSubId)
        return {};
    return {level.nId, level.nId, 1.0};
}

STimeMatch CTimeLevels::Find(qint64 nSubId, double dTime, bool bExact) const
{
    if (m_levels.empty())
        return {};
    if (m_levels.size() == 1 || dTime == STEADY_TIME)
        return At(0, nSubId);
    const size_t nFirst = m_levels.front().dTime == STEADY_TIME ? 1 : 0;
    if (!bExact)
        return Between(nFirst, dTime);
    const auto place = std::lower_bound(m_levels.begin() + nFirst, m_levels.end(), dTime, IsBefore);
    if (place == m_levels.end() || place->dTime != dTime)
        return {};
    return At(place - m_levels.begin(), nSubId);
}

STimeMatch CTimeLevels::Between(size_t nFirst, double dTime) const
{
    const auto high = std::lower_bound(m_levels.begin() + nFirst, m_levels.end(), dTime, IsBefore);
    if (high == m_levels.begin() + nFirst)
        return At(nFirst, NO_ID);
    if (high == m_levels.end())
        return At(m_levels.size() - 1, NO_ID);
    const auto low = high - 1;
    const double dWeight = 1.0 - (dTime - low->dTime) / (high->dTime - low->dTime);
    if (dWeight == 1.0)
        return {low->nId, low->nId, 1.0};
    if (dWeight == 0.0)
        return {high->nId, high->nId, 1.0};
    return {low->nId, high->nId, dWeight};
}
