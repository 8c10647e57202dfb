#include "frame/preferences/settingsstore.h"

#include "frame/messagesink.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRandomGenerator>
#include <QSettings>
#include <QThread>

namespace {

constexpr const char* DATA_KEY = "data";
constexpr const char* VARIABLE_ID_KEY = "variable/id";
constexpr const char* VARIABLE_NAME_KEY = "variable/name";
constexpr const char* VARIABLE_FORMULA_KEY = "variable/formula";
constexpr const char* VARIABLE_LOCATION_KEY = "variable/position";
constexpr const char* VARIABLE_USED_KEY = "variable/usedvar%1";

constexpr int LOCK_WAIT = 1000;  // [ms] that a save waits for another instance
constexpr int LOCK_PAUSE = 10;   // [ms] at most between two tries
constexpr int LOCK_STALE = 5000; // [ms] after which a lock is left over: nobody holds one for so long

void Log(const QString& sText) { CMessageSink::Instance().Log("Settings: " + sText); }

/** Takes the lock if it can be had soon. Not QLockFile's own wait: its pauses grow, and others go ahead. */
bool TryLock(QLockFile& lock)
{
    lock.setStaleLockTime(LOCK_STALE);
    QElapsedTimer timer;
    timer.start();
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || timer.hasExpired(LOCK_WAIT))
            return false;
        QThread::msleep(QRandomGenerator::global()->bounded(1, LOCK_PAUSE));
    }
    return true;
}

QVector<SStoredVariable> ReadVariables(const QSettings& settings)
{
    const QVariantList ids = settings.value(VARIABLE_ID_KEY).toList();
    const QStringList sNameList = settings.value(VARIABLE_NAME_KEY).toStringList();
    const QStringList sFormulaList = settings.value(VARIABLE_FORMULA_KEY).toStringList();
    const QVariantList locations = settings.value(VARIABLE_LOCATION_KEY).toList();
    const int nCount = std::min({ids.size(), sNameList.size(), sFormulaList.size(), locations.size()});
    if (nCount != ids.size())
        Log(QString("only %1 of %2 stored variables are complete").arg(nCount).arg(ids.size()));
    QVector<SStoredVariable> variables;
    for (int n = 0; n < nCount; ++n)
        variables.append({ids[n].toLongLong(), sNameList[n], sFormulaList[n], locations[n].toLongLong(),
                          settings.value(QString(VARIABLE_USED_KEY).arg(n)).toStringList()});
    return variables;
}

void WriteVariables(QSettings& settings, const QVector<SStoredVariable>& variables)
{
    QVariantList ids, locations;
    QStringList sNameList, sFormulaList;
    for (const SStoredVariable& variable : variables) {
        settings.setValue(QString(VARIABLE_USED_KEY).arg(ids.size()), variable.sUsedNameList);
        ids.append(variable.nId);
        sNameList.append(variable.sName);
        sFormulaList.append(variable.sFormula);
        locations.append(variable.nLocation);
    }
    // No lists of variables that are gone; what else may stand in the group is of another version.
    for (int n = variables.size(); settings.contains(QString(VARIABLE_USED_KEY).arg(n)); ++n)
        settings.remove(QString(VARIABLE_USED_KEY).arg(n));
    const auto setOrRemove = [&](const char* sKey, const QVariant& list) {
        if (variables.isEmpty())
            settings.remove(sKey);
        else
            settings.setValue(sKey, list);
    };
    setOrRemove(VARIABLE_ID_KEY, ids);
    setOrRemove(VARIABLE_NAME_KEY, sNameList);
    setOrRemove(VARIABLE_FORMULA_KEY, sFormulaList);
    setOrRemove(VARIABLE_LOCATION_KEY, locations);
}

} // namespace

CSettingsStore::CSettingsStore(const QString& sOrganisation, const QString& sApplication)
    : m_sOrganisation(sOrganisation),
      m_sApplication(sApplication),
      m_sFileName(QSettings(QSettings::UserScope, sOrganisation, sApplication).fileName())
{}

SStoredSettings CSettingsStore::Read() const
{
    QSettings settings(QSettings::UserScope, m_sOrganisation, m_sApplication);
    settings.sync(); // what other instances have written since
    if (settings.status() != QSettings::NoError)
        Log(QString("%1 can't be read whole").arg(m_sFileName));
    SStoredSettings stored;
    if (const QByteArray data = settings.value(DATA_KEY).toByteArray(); !data.isEmpty())
        stored.eState = stored.content.pack.FromBytes(data, -1.0) ? StoreWhole : StoreDamaged;
    if (stored.eState == StoreDamaged)
        Log(QString("%1 is damaged; what could be read was kept").arg(m_sFileName));
    stored.content.variables = ReadVariables(settings);
    return stored;
}

bool CSettingsStore::Update(const std::function<SSettings(const SStoredSettings& stored)>& change) const
{
    bool bWritten = Prepare();
    if (bWritten) {
        // Where the other instance doesn't end its save, this one goes on: settings are rather mixed than
        // lost.
        QLockFile lock(m_sFileName + ".save");
        if (!TryLock(lock))
            Log(QString("no lock for %1").arg(m_sFileName));
        bWritten = Write(change(Read()));
    }
    if (!bWritten)
        Log(QString("%1 can't be written").arg(m_sFileName));
    return bWritten;
}

/** The settings hold passwords: makes the file the owner's alone before a word is written to it. */
bool CSettingsStore::Prepare() const
{
    QDir().mkpath(QFileInfo(m_sFileName).path());
    QFile file(m_sFileName);
    if (!file.exists() && file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.close();
    // The permissions count, not what this process may do: root could write over a file made read-only.
    const QFileInfo info(m_sFileName);
    return info.isFile() && info.isWritable() && info.permission(QFile::WriteOwner) &&
           file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

bool CSettingsStore::Write(const SSettings& content) const
{
    // QSettings waits for this lock as long as it takes, so its way is cleared first.
    if (QLockFile lock(m_sFileName + ".lock"); !TryLock(lock))
        return false;
    QSettings settings(QSettings::UserScope, m_sOrganisation, m_sApplication);
    settings.setValue(DATA_KEY, content.pack.ToBytes());
    WriteVariables(settings, content.variables);
    settings.sync();
    return settings.status() != QSettings::AccessError; // another status is about what was read
}
