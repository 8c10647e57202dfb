#pragma once

#include "frame/packs/datapack.h"
#include "frame/packs/packkey.h"

#include <QIcon>

/** Keys of every simulation's pack. */
namespace SimulationKey {

inline constexpr SKey<const char*> NAME{"Name", ""}; // shown in the tab and the item panel
inline constexpr SKey<const char*> TOOL_TIP{"ToolTip", ""};
inline constexpr SKey<const char*> DIRECTORY{"Directory", ""}; // of the data files
inline constexpr SKey<qint64> LAST_ITEM_ID{"#LastItemId", 0};  // written where it isn't that of an item
inline constexpr SKey<const char*> WORKING_DIRECTORY{"Run.WorkingDirectory", ""};
inline const SKey<QVector<qint64>> REMOTE_SERVERS{"Run.RemoteServerIdList", {}};
inline const SKey<QVector<qint64>> REMOTE_PROCESS_COUNTS{"Run.RemoteServerProcessCountList", {}};

} // namespace SimulationKey

/** First link of ISimulation: who the simulation is and what was last saved of it. */
class ISimulationIdentity : public CDataPack
{
public:
    /** @param nModuleId  id of the module that makes it */
    explicit ISimulationIdentity(qint64 nModuleId) : m_nModuleId(nModuleId) {}
    ISimulationIdentity(const ISimulationIdentity&) = delete;
    ISimulationIdentity& operator=(const ISimulationIdentity&) = delete;

    /** Given by CSimulationManager; the list of items passes it on to each of them. */
    virtual void SetId(qint64 nId) { m_nId = nId; }
    virtual qint64 GetId() const { return m_nId; }
    /** Stored and returned only. */
    virtual void SetAuxiliaryId(qint64 nId) { m_nAuxiliaryId = nId; }
    virtual qint64 GetAuxiliaryId() const { return m_nAuxiliaryId; }
    virtual void SetModuleId(qint64 nId) { m_nModuleId = nId; }
    virtual qint64 GetModuleId() const { return m_nModuleId; }
    /** Tells CSimulationManager of a new name. */
    virtual void SetName(const QString& sName);
    virtual QString GetName() const;
    virtual void SetToolTip(const QString& sToolTip);
    /** The name where none was set. */
    virtual QString GetToolTip() const;
    /** The simulation file of this case. */
    virtual void SetFilePath(const QString& sPath) { m_sFilePath = sPath; }
    virtual QString GetFilePath() const { return m_sFilePath; }
    /** ToBytes as of the last save or open. */
    virtual void SetSavedData(const QByteArray& data) { m_savedData = data; }
    virtual QByteArray GetSavedData() const { return m_savedData; }
    /** SaveViewState of the active view as of the last save or open. */
    virtual void SetSavedDisplay(const QByteArray& data) { m_savedDisplay = data; }
    virtual QByteArray GetSavedDisplay() const { return m_savedDisplay; }
    virtual void SetExtraText(const QString& sText) { m_sExtraText = sText; }
    virtual QString GetExtraText() const { return m_sExtraText; }
    /** Camera block and rotation point of the simulation file. */
    virtual void SetCameraData(const QByteArray& data) { m_cameraData = data; }
    virtual QByteArray GetCameraData() const { return m_cameraData; }
    virtual QIcon GetIcon() const { return {}; }
    /** Sums over all items. */
    virtual qint64 GetPointCount() const = 0;
    virtual qint64 GetCellCount() const = 0;
    /** Identifies the data files; empty if there are none to refer to. */
    virtual QByteArray GetDataFileKey() const { return {}; }
    virtual bool IsSameDataFile(const QByteArray&) const { return false; }
    /** Save to the file path when the last view of the case closes. */
    virtual void SetSaveOnClose(bool bSave) { m_bSaveOnClose = bSave; }
    virtual bool IsSaveOnClose() const { return m_bSaveOnClose; }
    /** Operating-system group of the case. */
    virtual void SetGroup(const QString& sGroup) { m_sGroup = sGroup; }
    virtual QString GetGroup() const { return m_sGroup; }

private:
    qint64 m_nId = -1;
    qint64 m_nAuxiliaryId = -1;
    qint64 m_nModuleId;
    QString m_sFilePath;
    QByteArray m_savedData;
    QByteArray m_savedDisplay;
    QString m_sExtraText;
    QByteArray m_cameraData;
    bool m_bSaveOnClose = false;
    QString m_sGroup;
};
