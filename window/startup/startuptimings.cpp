#include "window/startup/startuptimings.h"

#include <QEvent>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <chrono>
#include <cstdio>

namespace {

constexpr const char* VARIABLE = "ZENTO_STARTUP_TIMINGS";

struct SNote
{
    const char* sStep;
    qint64 nNanoseconds; // since the exec
};

QVector<SNote> s_notes;

qint64 SinceExec(qint64 nExec)
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() - nExec;
}

void Print()
{
    for (const SNote& note : std::as_const(s_notes))
        std::printf("%-24s %7.1f ms\n", note.sStep, note.nNanoseconds * 1e-6);
    std::fflush(stdout);
}

/** Waits for the first paint. */
class CFirstPaint : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::Paint)
            return false;
        pWatched->removeEventFilter(this);
        // The paint itself counts too, and that of the children, which follows it.
        QTimer::singleShot(0, this, [this] {
            StartupTimings::Note("first paint");
            Print();
            deleteLater();
        });
        return false;
    }
};

} // namespace

void StartupTimings::Note(const char* sStep)
{
    static const qint64 s_nExec = qgetenv(VARIABLE).toLongLong();
    if (s_nExec > 0)
        s_notes.append({sStep, SinceExec(s_nExec)});
}

void StartupTimings::PrintAfterFirstPaint(QWidget* pWidget)
{
    if (qEnvironmentVariableIsSet(VARIABLE))
        pWidget->installEventFilter(new CFirstPaint(pWidget));
}
