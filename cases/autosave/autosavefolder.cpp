#include "cases/autosave/autosavefolder.h"

#include "cases/files/casestorage.h"
#include "frame/messagesink.h"
#include "frame/replacefile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QUuid>

namespace {

constexpr const char *SUFFIX = ".autosave", *LOCK_SUFFIX = ".lock";

QString LockOf(const QString& sFolder) { return sFolder + LOCK_SUFFIX; }

QFileInfoList FilesIn(const QString& sFolder)
{
    return QDir(sFolder).entryInfoList({QString("*%1").arg(SUFFIX)}, QDir::Files, QDir::Name);
}

/** With those that died between lock and folder, and those whose cases nobody has taken yet. */
QStringList InstanceFolders(const QDir& root)
{
    QStringList sNameList = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    const QString sPattern = QString("*%1").arg(LOCK_SUFFIX);
    for (const QFileInfo& lock : root.entryInfoList({sPattern}, QDir::Files, QDir::Name))
        sNameList.append(lock.completeBaseName());
    sNameList.removeDuplicates();
    for (QString& sName : sNameList)
        sName = root.filePath(sName);
    return sNameList;
}

} // namespace

CAutosaveFolder::CAutosaveFolder(const QString& sRoot)
    : m_sRoot(sRoot),
      m_sInstance(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_lock(LockOf(QDir(sRoot).filePath(m_sInstance)))
{
    m_lock.setStaleLockTime(0); // only its process can let go of it, however long it runs
}

void CAutosaveFolder::Clear()
{
    for (const qint64 nSimulationId : GetStoredIds())
        Drop(nSimulationId);
    QDir(m_sRoot).rmdir(m_sInstance);
    m_lock.unlock();
}

/** The lock is there before the folder, so that nobody takes the folder for one of an instance that died. */
bool CAutosaveFolder::Open()
{
    if (!QDir().mkpath(m_sRoot) || !(m_lock.isLocked() || m_lock.tryLock(0)))
        return false;
    return QDir(m_sRoot).mkpath(m_sInstance); // anew if somebody has tidied up
}

QString CAutosaveFolder::FileOf(qint64 nSimulationId) const
{
    return QDir(m_sRoot).filePath(QString("%1/%2%3").arg(m_sInstance).arg(nSimulationId).arg(SUFFIX));
}

bool CAutosaveFolder::Store(qint64 nSimulationId, const QByteArray& bytes)
{
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    if (m_stored.value(nSimulationId) == hash)
        return true;
    if (!Open() || !ReplaceFile(FileOf(nSimulationId), bytes))
        return false;
    m_stored[nSimulationId] = hash;
    return true;
}

void CAutosaveFolder::Drop(qint64 nSimulationId)
{
    if (m_stored.remove(nSimulationId) > 0)
        QFile::remove(FileOf(nSimulationId));
}

CLostCases::CLostCases(const QString& sRoot)
{
    for (const QString& sFolder : InstanceFolders(QDir(sRoot))) {
        auto pLock = std::make_unique<QLockFile>(LockOf(sFolder));
        pLock->setStaleLockTime(0);
        if (!pLock->tryLock(0))
            continue; // it runs, or another instance is at it
        Read(sFolder);
        m_instances.push_back({sFolder, std::move(pLock)});
    }
}

void CLostCases::Read(const QString& sFolder)
{
    for (const QFileInfo& file : FilesIn(sFolder)) {
        QByteArray bytes;
        SAutosaveFile content;
        if (ReadWholeFile(file.filePath(), bytes) && content.FromBytes(bytes) == StoredOk)
            m_cases.append({file.filePath(), content});
        else
            CMessageSink::Instance().Log(QString("The automatic save %1 can't be read").arg(file.filePath()));
    }
}

CLostCases::~CLostCases()
{
    for (const SInstance& instance : m_instances) {
        if (FilesIn(instance.sFolder).isEmpty())
            QDir(instance.sFolder).removeRecursively(); // a save that was killed left half a file
        instance.pLock->unlock();
    }
}

void CLostCases::Remove(const SCase& lost) { QFile::remove(lost.sAutosave); }
