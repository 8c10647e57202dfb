#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>

#include <mutex>

/**
 * The one object through which the solver of a simulation is started, followed and killed. What it prints
 * is collected in two buffers, which the owner takes when the signals tell.
 *
 * Main thread; the buffers are guarded all the same, since they may be filled from elsewhere.
 */
class CProcess : public QObject
{
    Q_OBJECT

public:
    /** @param nId  the simulation's id, which the signals carry */
    explicit CProcess(qint64 nId, QObject* pParent = nullptr);
    /** A process that still runs is killed; whoever has a user asks first. */
    ~CProcess() override;

    /** Starts the program unless one runs; the outcome shows in the signals. Both buffers are emptied. */
    virtual void Start(const QString& sProgram, const QStringList& sArgumentList);
    /** The same for a command line, split at blanks outside of double quotes. No shell takes part. */
    virtual void Start(const QString& sCommand);
    /** Ends the process at once, without letting it write. */
    virtual void Kill();

    /** What has come since the last call. */
    QByteArray TakeStandardOutput();
    QByteArray TakeStandardError();

    QProcess::ProcessState GetState() const { return m_eState; }
    bool IsRunning() const { return m_eState != QProcess::NotRunning; }
    QString GetWorkingDirectory() const { return m_sWorkingDirectory; }
    void SetWorkingDirectory(const QString& sDirectory);

signals:
    void SignalStateChanged(qlonglong nId, QProcess::ProcessState eState);
    void SignalReadyReadStandardError(qlonglong nId);
    void SignalReadyReadStandardOutput(qlonglong nId);

public slots:
    void SlotStateChanged(QProcess::ProcessState eState);
    void SlotReadyReadStandardError();
    void SlotReadyReadStandardOutput();
    /** Makes a failure one more line of the run's error text. */
    void SlotErrorOccurred(QProcess::ProcessError error);

private:
    void Begin();
    void Append(QByteArray& buffer, const QByteArray& bytes);
    QByteArray Take(QByteArray& buffer);

    const qint64 m_nId;
    QString m_sWorkingDirectory; // of the run; its instruction file lies there
    QProcess m_process;
    QProcess::ProcessState m_eState = QProcess::NotRunning;
    std::mutex m_mutex; // guards the two buffers, for a copy only
    QByteArray m_standardOutput;
    QByteArray m_standardError;
};
