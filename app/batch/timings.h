#pragma once

#include <QElapsedTimer>
#include <QPair>
#include <QString>
#include <QVector>

/** How long the stages of a run took, for --timings. */
class CTimings
{
public:
    CTimings() { m_timer.start(); }
    /** Ends a stage that began at the end of the last one. */
    void EndStage(const char* sName);
    /** Writes a JSON object of stage name to seconds, and "peakBytes". False if the file can't be written. */
    bool Write(const QString& sFileName) const;

private:
    QElapsedTimer m_timer;
    QVector<QPair<QString, double>> m_stages;
};
