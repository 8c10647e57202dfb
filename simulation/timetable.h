#pragma once

#include <QPointF>
#include <QVector>

/**
 * The time levels of a case: ascending times with the solver's step of each. Indices count from 1 and may
 * be fractional, which stands for a place between two levels.
 */
class CTimeTable
{
public:
    qint64 Count() const { return m_times.size(); }
    void Clear();

    /** Inserts in order among the entries nFirst to nLast (from 0, included); a known time takes the step. */
    void Insert(double dTime, qint64 nStep, qint64 nFirst, qint64 nLast);

    /** Linear between the levels, clamped to the first and last; -1.0 for an empty table. */
    double IndexToTime(double dIndex) const;
    double IndexToStep(double dIndex) const;
    /**
     * The inverse. 1.0 for -1.0 and before the first level, the count behind the last; -1.0 for an empty
     * table.
     */
    double TimeToIndex(double dTime) const;
    double StepToIndex(double dStep) const;
    double TimeToStep(double dTime) const { return IndexToStep(TimeToIndex(dTime)); }
    double StepToTime(double dStep) const { return IndexToTime(StepToIndex(dStep)); }
    /** (first, last) time; (-1.0, -1.0) for an empty table. */
    QPointF Range() const;

private:
    QVector<double> m_times;
    QVector<qint64> m_steps; // parallel to m_times
};
