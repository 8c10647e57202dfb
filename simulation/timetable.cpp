#include "simulation/timetable.h"

#include "frame/novalue.h"

namespace {

constexpr double NO_INDEX = -1.0;

/** Linear at a one-based, possibly fractional index, clamped to the ends. */
template <class T> double AtIndex(const QVector<T>& values, double dIndex)
{
    if (values.isEmpty())
        return -1.0;
    const double dLast = values.size() - 1;
    const double dPlace = std::clamp(dIndex - 1.0, 0.0, dLast);
    const double dLow = std::floor(dPlace);
    const double dHigh = std::ceil(dPlace);
    const double dFirst = values[static_cast<int>(dLow)];
    if (dLow == dHigh)
        return dFirst;
    const double dFraction = dPlace - dLow;
    return (1.0 - dFraction) * dFirst + dFraction * values[static_cast<int>(dHigh)];
}

/**
 * The one-based index of a value by a scan from the front: exact hits first, then the gap that holds it.
 * A scan rather than a search, since steps needn't ascend where a restarted run counts anew.
 */
template <class T> double IndexOf(const QVector<T>& values, double dValue)
{
    if (values.isEmpty())
        return NO_INDEX;
    if (dValue == STEADY_TIME || dValue <= values.first())
        return 1.0;
    for (int n = 1; n < values.size(); ++n) {
        if (dValue == values[n])
            return n + 1;
        const double dLow = values[n - 1];
        const double dHigh = values[n];
        if (dLow < dValue && dValue < dHigh)
            return n + (dValue - dLow) / (dHigh - dLow);
    }
    return values.size();
}

} // namespace

void CTimeTable::Clear()
{
    m_times.clear();
    m_steps.clear();
}

void CTimeTable::Insert(double dTime, qint64 nStep, qint64 nFirst, qint64 nLast)
{
    if (nFirst > nLast) {
        m_times.append(dTime);
        m_steps.append(nStep);
        return;
    }
    const auto begin = m_times.cbegin();
    const auto place = std::lower_bound(begin + nFirst, begin + nLast + 1, dTime);
    const int nPlace = place - begin;
    if (nPlace <= nLast && *place == dTime) {
        m_steps[nPlace] = nStep;
        return;
    }
    m_times.insert(nPlace, dTime);
    m_steps.insert(nPlace, nStep);
}

double CTimeTable::IndexToTime(double dIndex) const { return AtIndex(m_times, dIndex); }
double CTimeTable::IndexToStep(double dIndex) const { return AtIndex(m_steps, dIndex); }
double CTimeTable::TimeToIndex(double dTime) const { return IndexOf(m_times, dTime); }
double CTimeTable::StepToIndex(double dStep) const { return IndexOf(m_steps, dStep); }

QPointF CTimeTable::Range() const
{
    return m_times.isEmpty() ? QPointF(STEADY_TIME, STEADY_TIME) : QPointF(m_times.first(), m_times.last());
}
