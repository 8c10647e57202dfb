#pragma once

#include "cases/blocks/keptdisplays.h"
#include "cases/blocks/restorableitems.h"
#include "simulation/isimulation.h"

struct SDataFiles;

/**
 * A case of structured blocks that is looked at, whatever its files: blocks with boundaries and surfaces
 * below them, shown by their selectables, displays as bytes and as files, undo that brings deleted items back
 * with their data. A derived class reads the files: it says what items there are and registers the data of
 * blocks.
 */
class CBlockCase : public ISimulation
{
public:
    using ISimulation::ISimulation;

    /**
     * Makes the case of files as they are named: nothing that lies beside them is taken along.
     *
     * @return what is wrong, in one line; the case is of no use then. Empty if it went well
     */
    virtual QString OpenData(const SDataFiles& files) = 0;

    // Display state.
    QByteArray SaveViewState(qint64 nViewId) const override;
    QByteArray SaveViewEdits(qint64 nViewId) const override;
    bool LoadViewState(const QByteArray& state, qint64 nViewId, double dVersion) override;
    QJsonObject SaveViewJson(qint64 nViewId) const override;
    bool LoadViewJson(const QJsonObject& display, qint64 nViewId, double dVersion) override;
    void CreateDefaultSelectables(qint64 nViewId) override;
    /** The preference "Display.HighlightSelectInAnalyze": colours and lines of a selection cover results. */
    bool ShowsSelection() const override;
    double GetDefaultScale() const override { return 1.0; }
    void SaveDisplayFile(qint64 nViewId) override;
    bool ChooseDisplayFile(qint64 nViewId) override;
    /** The next ChooseDisplayFile asks nothing: what the user wants to see was part of another choice. */
    void SetDisplayChosen() { m_bDisplayChosen = true; }
    bool LoadDisplayFile(const QString& sFile, qint64 nViewId) override;

    // Undo: the items, then what the views show.
    bool UndoIncludesPack() const override { return false; }
    QByteArray CaptureState() const override;
    bool RestoreState(const QByteArray& state) override;
    bool IsCurrentState(const QByteArray& state) const override;

    // Editing.
    CItem* CreateItem(qint64 nType, qint64 nKind, bool bNew, qint64 nIndex, qint64 nId,
                      qint64 nSubId) override;
    void DeleteAllItems() override;
    /** With all below it, and their data. */
    void DeleteItem(qint64 nId, qint64 nSubId = -1) override;
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

protected:
    /** An item with nothing set; null for a type that the case doesn't have. */
    virtual CItem* MakeItem(qint64 nType, qint64 nKind) const = 0;
    /**
     * Registers the data of items that have come back.
     *
     * @return what is wrong, for the log; empty if it went well
     */
    virtual QString RegisterData(const QVector<qint64>& itemIds) = 0;

    /** The items are about to be made anew from files; items of older undo states are others from now on. */
    void BeginLoad() { m_restorable.NoteLoad(); }
    /** Items and data are there: views get the new ones and read the others again. */
    void FinishLoad();
    /** The case stands without all of its data; what views are to show is kept until they are there. */
    void SetDataProblems(const QStringList& sProblemList) { m_sDataProblemList = sProblemList; }
    /** Takes items with all below them and their data. */
    void RemoveWithData(const QVector<qint64>& ids);

private:
    void PassLegendsOf(const QVector<qint64>& ids) const;
    void RemoveData(qint64 nId) const;
    QByteArray ItemBytes() const;
    /** Makes the items, with their data and selectables, those of an undo state. */
    bool RestoreItems(const QByteArray& bytes);
    void TellViews();

    CRestorableItems m_restorable;
    CKeptDisplays m_kept;
    QStringList m_sDataProblemList; // of the stored case's files, while not all could be registered
    bool m_bDisplayChosen = false;
};
