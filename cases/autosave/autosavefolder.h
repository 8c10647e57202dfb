#pragma once

#include "cases/autosave/autosavefile.h"

#include <QLockFile>
#include <QMap>
#include <QVector>

#include <memory>
#include <vector>

// Automatic saves lie in one folder for all instances of the program: of each instance a lock file, which
// tells whether it still runs, and a folder with a file for each case that has changes nobody has saved.
//
//     root/<instance>.lock
//     root/<instance>/<simulation id>.autosave

/**
 * The automatic saves of this instance. They stay behind it, for the next start, unless Clear says that it
 * has ended as it should.
 */
class CAutosaveFolder
{
public:
    /** Makes nothing on disk until there is something to keep. */
    explicit CAutosaveFolder(const QString& sRoot);
    Q_DISABLE_COPY_MOVE(CAutosaveFolder)

    /** @return false if it can't be written; a former save of the case stays then */
    bool Store(qint64 nSimulationId, const QByteArray& bytes);
    /** There is nothing to lose any more. */
    void Drop(qint64 nSimulationId);
    void Clear();
    QVector<qint64> GetStoredIds() const { return m_stored.keys().toVector(); }

private:
    bool Open();
    QString FileOf(qint64 nSimulationId) const;

    const QString m_sRoot;
    const QString m_sInstance;
    QLockFile m_lock;
    QMap<qint64, QByteArray> m_stored; // hash of what stands in the file, by simulation id
};

/**
 * What instances left that were killed or crashed. As long as it lives no other instance sees them; one that
 * runs is no crash.
 */
class CLostCases
{
public:
    struct SCase
    {
        QString sAutosave; ///< the file
        SAutosaveFile content;
    };

    /** What can't be read is left where it is, told to the log. */
    explicit CLostCases(const QString& sRoot);
    /** Removes folders that are empty by now. */
    ~CLostCases();
    Q_DISABLE_COPY_MOVE(CLostCases)

    const QVector<SCase>& GetCases() const { return m_cases; }
    /** The case is safe, or not wanted. */
    static void Remove(const SCase& lost);

private:
    void Read(const QString& sFolder);

    struct SInstance
    {
        QString sFolder;
        std::unique_ptr<QLockFile> pLock;
    };
    std::vector<SInstance> m_instances;
    QVector<SCase> m_cases;
};
