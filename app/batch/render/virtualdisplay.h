#pragma once

#include <QString>

#include <sys/types.h>

/** Whether the environment names an X display whose server answers. */
bool HasDisplay();

/**
 * An X display of this process alone, on no screen. It ends with this object, and with the process, however
 * that ends.
 */
class CVirtualDisplay
{
public:
    CVirtualDisplay() = default;
    ~CVirtualDisplay();
    CVirtualDisplay(const CVirtualDisplay&) = delete;
    CVirtualDisplay& operator=(const CVirtualDisplay&) = delete;

    /**
     * Starts it on a free number and makes it the display of the process. Main thread, ahead of the
     * application object.
     *
     * @return the problem in one line; empty if all is well
     */
    QString Start();

private:
    void Stop();

    pid_t m_nPid = 0; // 0: doesn't run
};
