#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

class QFile;

/**
 * Where the program writes what it has to say without a window: to a log file if one is open, otherwise
 * to Qt's warning output. May be called from any thread.
 */
class CMessageSink
{
public:
    static CMessageSink& Instance();

    /**
     * Writes the text if the level passes.
     *
     * @param nLevel  passes while the debug level is at least this; 0 always passes, 2 is detail
     * @param bTime   appends " T: %1", the milliseconds since the epoch
     * @param bDelta  appends " DT: %1", the milliseconds since the last message that asked for it;
     *                nothing for the first
     */
    void Log(const QString& sText, qint64 nLevel = 0, bool bTime = false, bool bDelta = false);

    /** The level up to which messages pass; the preference "Data.DebugLevel" sets it. 0 at the start. */
    void SetDebugLevel(qint64 nLevel) { m_nDebugLevel = nLevel; }
    qint64 GetDebugLevel() const { return m_nDebugLevel; }

    /** Appends all further messages to the file. False if it can't be opened: the former target stays. */
    bool OpenLogFile(const QString& sFileName);
    /** Back to Qt's warning output. */
    void CloseLogFile();

private:
    CMessageSink();
    ~CMessageSink();

    std::atomic<qint64> m_nDebugLevel = 0;
    std::mutex m_mutex; // guards all below, and keeps lines whole
    std::unique_ptr<QFile> m_pFile;
    std::optional<qint64> m_nLastDelta; // [ms since the epoch] of the last message with bDelta
};
