#pragma once

#include "frame/preferences/settingsmerge.h"

#include <functional>

enum StoreState_e {
    StoreEmpty, ///< there is no pack
    StoreDamaged,
    StoreWhole
};

/** What could be read of a settings file. */
struct SStoredSettings
{
    SSettings content;
    StoreState_e eState = StoreEmpty; ///< of the pack
};

/**
 * The settings file of the program, as CPreferences uses it: the pack as one value under the key "data", user
 * variables beside it. Whatever else the file holds is left alone. The file is written beside itself and
 * renamed over, is its owner's alone, and is never written where its owner has made it read-only.
 *
 * Nothing here waits long: a lock that another instance doesn't give back within a second is passed by.
 */
class CSettingsStore
{
public:
    CSettingsStore(const QString& sOrganisation, const QString& sApplication);

    const QString& FileName() const { return m_sFileName; }

    /** What can be read of the file; the message sink is told of the rest. */
    SStoredSettings Read() const;

    /**
     * Exchanges what the file holds for what change makes of it, while no other instance does the same.
     *
     * @return false if the file can't be written, told to the message sink
     */
    bool Update(const std::function<SSettings(const SStoredSettings& stored)>& change) const;

private:
    bool Prepare() const;
    bool Write(const SSettings& content) const;

    QString m_sOrganisation;
    QString m_sApplication;
    QString m_sFileName;
};
