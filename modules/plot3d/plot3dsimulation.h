#pragma once

#include "cases/blocks/blockcase.h"
#include "modules/plot3d/fvbnd.h"
#include "modules/plot3d/packrecords.h"

class CBoundaryItem;

/**
 * A case of structured files: a CBlock for each chosen block of the grid file, a CBoundaryItem for each face
 * that a boundary file beside it names. Its settings are the keys of modules/plot3d/plot3dkeys.h. Loading
 * reads headers only.
 */
class CPlot3DSimulation : public CBlockCase
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
    QString OpenData(const SDataFiles& files) override;
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

    void SetSelectableDimension(ISelectable* pSelectable) const override;

    // Files as the user edits them and as display files name them (plot3dsimulation_files.cpp).
    bool EditData() override;
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

    // Free stream.
    bool HasVelocityGradient() const override { return true; }
    /** "FreeStreamMach"; 1.0 where it isn't between 0 and 100. */
    double GetFreeStreamVelocity() const override;
    bool FreeStreamAssumed() const override;

protected:
    CItem* MakeItem(qint64 nType, qint64 nKind) const override;
    QString RegisterData(const QVector<qint64>& itemIds) override;

private:
    QString CaseFolder() const;
    void RegisterStoredCase();
    QVector<qint64> UpdateBlocks(const CCaseRecords& records, const SPlot3DCase& examined);
    void RegisterCase(const SPlot3DCase& examined, const QVector<qint64>& itemIds);
    void UpdateTimes();
    void UpdateBoundaries();
    QVector<SBoundaryRecord> ReadBoundaries() const;
    void DescribeFiles(const CCaseRecords& records);

    SPlot3DCase m_case;       // as it was examined last
    bool m_bKeepData = false; // while a display goes onto them that may name others
    QString m_sToolTip;
};
