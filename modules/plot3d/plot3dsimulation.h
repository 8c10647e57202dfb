#pragma once

#include "modules/plot3d/fvbnd.h"
#include "modules/plot3d/packrecords.h"
#include "simulation/isimulation.h"

class CBoundaryItem;

/**
 * A case of structured files: a CBlock for each chosen block of the grid file, a CBoundaryItem for each face
 * that a boundary file beside it names. Its settings are the keys of modules/plot3d/plot3dkeys.h. Loading
 * reads headers only.
 */
class CPlot3DSimulation : public ISimulation
{
public:
    explicit CPlot3DSimulation(qint64 nModuleId);

    // Files (plot3dsimulation_load.cpp). The simulation stands in CSimulationManager, which gives it its id.
    /**
     * Makes the case that the records say. On a loaded case whatever is still the same stays: blocks and
     * boundaries with what the views show of them. The views' new items get their default display.
     *
     * @return what is wrong, for the user; nothing has changed then. Empty if it went well
     */
    QString Load(const CCaseRecords& records);
    /** Loads once more from the keys: files that were rewritten, levels that are new. As Load. */
    QString Reload();
    /** The files of the case as they are on disk now. */
    CCaseRecords GetRecords() const;
    /**
     * Registers the data files too. Those that are gone are looked for where the case is now, then asked for;
     * what is still missing then, or no longer fits, is in the log, and the case is there without it.
     */
    bool FromBytes(const QByteArray& bytes, double dVersion) override;
    /** Whether grid files offer "Hole" as a variable. */
    virtual bool OffersHole() const { return true; }

    // Identity.
    QByteArray GetDataFileKey() const override;
    bool IsSameDataFile(const QByteArray& key) const override;
    QIcon GetIcon() const override;
    /** The files with the layouts that were detected. */
    QString GetToolTip() const override { return m_sToolTip.isEmpty() ? GetName() : m_sToolTip; }

    // Display state (plot3dsimulation_display.cpp).
    QByteArray SaveViewState(qint64 nViewId) const override;
    QByteArray SaveViewEdits(qint64 nViewId) const override;
    bool LoadViewState(const QByteArray& state, qint64 nViewId, double dVersion) override;
    QJsonObject SaveViewJson(qint64 nViewId) const override;
    bool LoadViewJson(const QJsonObject& display, qint64 nViewId, double dVersion) override;
    void CreateDefaultSelectables(qint64 nViewId) override;
    /** The preference "Display.HighlightSelectInAnalyze": colours and lines of a selection cover results. */
    bool ShowsSelection() const override;
    double GetDefaultScale() const override { return 1.0; }
    void SetSelectableDimension(ISelectable* pSelectable) const override;

    // Display files (plot3dsimulation_files.cpp).
    void SaveDisplayFile(qint64 nViewId) override;
    bool ChooseDisplayFile(qint64 nViewId) override;
    /** The next ChooseDisplayFile asks nothing: what the user wants to see was part of another choice. */
    void SetDisplayChosen() { m_bDisplayChosen = true; }
    bool LoadDisplayFile(const QString& sFile, qint64 nViewId) override;
    /**
     * Shows what was chosen beside the data, a display file or a FieldView restart, on the data that are
     * there.
     *
     * @return false, after telling why, if that isn't possible; true if nothing was chosen
     */
    bool ShowDisplayOf(const CCaseRecords& records, qint64 nViewId);
    /** Whether there are items that a display can go onto. */
    bool HoldsData() const { return !m_case.blocks.isEmpty(); }
    QJsonObject SaveDataFiles() const override;
    /** Its directory is that of the display file afterwards. */
    QString LoadDataFiles(const QJsonObject& settings, const QString& sFolder) override;

    // Undo: the items, then what the views show.
    bool UndoIncludesPack() const override { return false; }
    QByteArray CaptureState() const override;
    bool RestoreState(const QByteArray& state) override;
    bool IsCurrentState(const QByteArray& state) const override;

    // Editing (plot3dsimulation_edit.cpp).
    bool EditData() override;
    void DeleteAllItems() override;
    /** With all below it, and their data. */
    void DeleteItem(qint64 nId, qint64 nSubId = -1) override;
    CItem* CreateItem(qint64 nType, qint64 nKind, bool bNew, qint64 nIndex, qint64 nId,
                      qint64 nSubId) override;
    QVector<qint64> GetLinkedItems(qint64 nId) const override;
    /** Adds the surfaces that go on from the selected ones within the preference "Data.AngleLimit". */
    void SelectAdjacent(qint64 nViewId) override;
    void ActivateSelection(qint64) override {}
    void DeleteSelection(qint64 nViewId) override;
    void DuplicateSelection(qint64) override {}
    void TransformSelection(const QVector<qint64>&, const STransform&, bool) override {}
    bool CanActivateSelection(qint64) const override { return false; }
    bool CanDelete(qint64 nViewId) const override;
    bool CanDuplicate(qint64) const override { return false; }
    bool CanTransform(qint64) const override { return false; }

    /** What of the stored case's files can't be used, one line each; empty where all can. */
    const QStringList& GetDataProblems() const { return m_sDataProblemList; }

    // Free stream.
    bool HasVelocityGradient() const override { return true; }
    /** "FreeStreamMach"; 1.0 where it isn't between 0 and 100. */
    double GetFreeStreamVelocity() const override;
    bool FreeStreamAssumed() const override;

private:
    /** A display as it was stored, and what of it could be shown without the data. */
    struct SKeptDisplay
    {
        QByteArray stored;
        QByteArray shown;
    };

    QString CaseFolder() const;
    void RegisterStoredCase();
    void ShowKeptDisplays();
    QVector<qint64> UpdateBlocks(const CCaseRecords& records, const SPlot3DCase& examined);
    void RegisterCase(const SPlot3DCase& examined, const QVector<qint64>& itemIds);
    void UpdateTimes();
    void UpdateBoundaries();
    QVector<SBoundaryRecord> ReadBoundaries() const;
    void DescribeFiles(const CCaseRecords& records);
    void TellViews();

    void PassLegendsOf(const QVector<qint64>& ids) const;
    void RemoveWithData(const QVector<qint64>& ids);
    void RemoveData(qint64 nId) const;
    QByteArray ItemBytes() const;
    /** Makes the items, with their data and selectables, those of an undo state. */
    bool RestoreItems(const QByteArray& bytes);

    SPlot3DCase m_case; // as it was examined last
    bool m_bDisplayChosen = false;
    bool m_bKeepData = false;       // while a display goes onto them that may name others
    QStringList m_sDataProblemList; // of the stored case's files, while not all could be registered
    QMap<qint64, SKeptDisplay>
        m_keptDisplays; // by view, while data are missing: to show and store them again
    QString m_sToolTip;
    qint64 m_nLoads = 0; // since then the items are others than in older undo states
};
