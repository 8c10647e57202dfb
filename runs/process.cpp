#include "runs/process.h"

#include <utility>

CProcess::CProcess(qint64 nId, QObject* pParent) : QObject(pParent), m_nId(nId)
{
    connect(&m_process, &QProcess::stateChanged, this, &CProcess::SlotStateChanged);
    connect(&m_process, &QProcess::readyReadStandardError, this, &CProcess::SlotReadyReadStandardError);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &CProcess::SlotReadyReadStandardOutput);
    connect(&m_process, &QProcess::errorOccurred, this, &CProcess::SlotErrorOccurred);
}

CProcess::~CProcess()
{
    m_process.disconnect(this);
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void CProcess::Start(const QString& sProgram, const QStringList& sArgumentList)
{
    if (m_process.state() == QProcess::Running)
        return; // a run is never replaced by another
    Begin();
    m_process.start(sProgram, sArgumentList, QIODevice::ReadWrite);
}

void CProcess::Start(const QString& sCommand)
{
    QStringList sWordList = QProcess::splitCommand(sCommand);
    const QString sProgram = sWordList.isEmpty() ? QString() : sWordList.takeFirst();
    Start(sProgram, sWordList);
}

void CProcess::Begin()
{
    if (m_eState != QProcess::Starting) {
        m_eState = QProcess::Starting;
        emit SignalStateChanged(m_nId, m_eState);
    }
    TakeStandardOutput();
    TakeStandardError();
}

void CProcess::Kill() { m_process.kill(); }

void CProcess::SetWorkingDirectory(const QString& sDirectory)
{
    m_sWorkingDirectory = sDirectory;
    m_process.setWorkingDirectory(sDirectory);
}

QByteArray CProcess::TakeStandardOutput() { return Take(m_standardOutput); }
QByteArray CProcess::TakeStandardError() { return Take(m_standardError); }

QByteArray CProcess::Take(QByteArray& buffer)
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(buffer, {});
}

void CProcess::Append(QByteArray& buffer, const QByteArray& bytes)
{
    const std::lock_guard lock(m_mutex);
    buffer.append(bytes);
}

void CProcess::SlotStateChanged(QProcess::ProcessState eState)
{
    if (eState == m_eState)
        return; // Start has told of it already
    m_eState = eState;
    emit SignalStateChanged(m_nId, eState);
}

void CProcess::SlotReadyReadStandardError()
{
    Append(m_standardError, m_process.readAllStandardError());
    emit SignalReadyReadStandardError(m_nId);
}

void CProcess::SlotReadyReadStandardOutput()
{
    Append(m_standardOutput, m_process.readAllStandardOutput());
    emit SignalReadyReadStandardOutput(m_nId);
}

void CProcess::SlotErrorOccurred(QProcess::ProcessError)
{
    Append(m_standardError, m_process.errorString().toUtf8());
    emit SignalReadyReadStandardError(m_nId);
    // An empty command fails without any change of QProcess's own state.
    SlotStateChanged(m_process.state());
}
