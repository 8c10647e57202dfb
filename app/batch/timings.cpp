#include "app/batch/timings.h"

#include "app/batch/jsonwriter.h"

#include <QSaveFile>

#include <sys/resource.h>

void CTimings::EndStage(const char* sName)
{
    m_stages.append({sName, m_timer.nsecsElapsed() * 1e-9}), m_timer.restart();
}

bool CTimings::Write(const QString& sFileName) const
{
    CJsonWriter json;
    json.BeginObject();
    for (const auto& [sName, dSeconds] : m_stages)
        json.Member(qPrintable(sName), dSeconds);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    json.Member("peakBytes", qint64(usage.ru_maxrss) * 1024); // Linux counts in KiB
    json.EndObject();
    QSaveFile file(sFileName);
    return file.open(QIODevice::WriteOnly) && file.write(json.Text() + '\n') == json.Text().size() + 1 &&
           file.commit();
}
