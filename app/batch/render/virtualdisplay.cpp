#include "app/batch/render/virtualdisplay.h"

#include <QElapsedTimer>
#include <QLibrary>
#include <QStandardPaths>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int START_MS = 20000; // a loaded machine takes its time
constexpr int STOP_MS = 3000;
constexpr int POLL_US = 2000;

/** The child's half: becomes the server. Calls nothing that isn't safe between fork and exec. */
[[noreturn]] void BecomeServer(const char* sProgram, char* const* arguments, pid_t nParent)
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != nParent)
        _exit(1); // the parent ended before it could be watched
    const int nNull = open("/dev/null", O_RDWR);
    for (const int nStream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nNull, nStream);
    execv(sProgram, arguments);
    _exit(1);
}

/** The line that the server writes: its number. Empty if it ends, or says nothing in time. */
QByteArray ReadNumber(int nPipe)
{
    QElapsedTimer timer;
    timer.start();
    QByteArray line;
    while (!line.endsWith('\n')) {
        pollfd ready{nPipe, POLLIN, 0};
        char c = 0;
        const int nLeft = int(std::max<qint64>(START_MS - timer.elapsed(), 0));
        if (poll(&ready, 1, nLeft) <= 0 || read(nPipe, &c, 1) != 1)
            return {};
        line.append(c);
    }
    return line.trimmed();
}

} // namespace

bool HasDisplay()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return false;
    // The library is there where Qt's X platform is; its headers needn't be.
    QLibrary xcb("xcb", 1);
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(xcb.resolve("xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(xcb.resolve("xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(xcb.resolve("xcb_disconnect"));
    if (!connect || !hasError || !disconnect)
        return false;
    void* const pConnection = connect(nullptr, nullptr);
    const bool bAnswers = hasError(pConnection) == 0;
    disconnect(pConnection);
    return bAnswers;
}

CVirtualDisplay::~CVirtualDisplay() { Stop(); }

QString CVirtualDisplay::Start()
{
    const QByteArray program = QStandardPaths::findExecutable("Xvfb").toLocal8Bit();
    if (program.isEmpty())
        return "there is no display, and no Xvfb to make one; install xvfb";
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        return "can't start Xvfb: no pipe";
    fcntl(pipeEnds[0], F_SETFD, FD_CLOEXEC);
    QByteArray number = QByteArray::number(pipeEnds[1]);
    // Without -noreset it begins anew when the client that asks for OpenGL leaves, and refuses the next.
    const char* const arguments[] = {
        "Xvfb", "-displayfd", number.constData(), "-screen", "0",        "640x480x24",
        "-dpi", "96",         "-nolisten",        "tcp",     "-noreset", nullptr};
    const pid_t nParent = getpid();
    m_nPid = fork();
    if (m_nPid == 0)
        BecomeServer(program.constData(), const_cast<char* const*>(arguments), nParent);
    close(pipeEnds[1]);
    number = m_nPid > 0 ? ReadNumber(pipeEnds[0]) : QByteArray();
    close(pipeEnds[0]);
    if (number.isEmpty()) {
        Stop();
        return QString("%1 doesn't start").arg(QString::fromLocal8Bit(program));
    }
    qputenv("DISPLAY", ':' + number);
    qunsetenv("XAUTHORITY");
    return {};
}

void CVirtualDisplay::Stop()
{
    const pid_t nPid = std::exchange(m_nPid, 0);
    if (nPid <= 0)
        return;
    kill(nPid, SIGTERM);
    QElapsedTimer timer;
    timer.start();
    while (waitpid(nPid, nullptr, WNOHANG) == 0) {
        if (timer.elapsed() > STOP_MS)
            kill(nPid, SIGKILL);
        usleep(POLL_US);
    }
}
