#pragma once

#include "data/cases/plot3dcase.h"
#include "frame/packs/packkey.h"

/** Keys of a file record. */
namespace FileRecordKey {

inline constexpr SKey<const char*> FILE_NAME{"FileName", ""};      // full
inline constexpr SKey<qint64> FILE_TYPE{"FileType", CODE_UNKNOWN}; // format code
inline constexpr SKey<bool> IS_VALID{"IsValid", false};
inline const SKey<QVector<qint64>> BLOCKS{"FileIndexList", {}};    // chosen, from 0; empty: none
inline const SKey<QVector<qint64>> BLOCK_SIZES{"GridDimList", {}}; // of all in the file, three each
inline constexpr SKey<bool> IS_TRANSIENT{"IsTransient", false};    // belongs to a series
inline const SKey<QStringList> TRANSIENT_FILES{"TransientFileList", {}};
inline const SKey<QStringList> TRANSIENT_TIMES{"TransientTimeCodeList", {}}; // numbers as text, parallel
inline const SKey<QStringList> VARIABLE_NAMES{"VariableNameList", {}};       // function files only
inline constexpr SKey<const char*> LAYOUT{"LayoutText", ""};                 // what was detected, in words

} // namespace FileRecordKey

/** What a file is wanted for. */
enum FileRole_e { RoleNone, RoleGrid, RoleQ, RoleFunction };

/** What is wrong with a choice of files: title and text of the message; empty if nothing is. */
struct SFilesProblem
{
    QString sTitle;
    QString sText;

    bool IsNone() const { return sText.isEmpty(); }
};

/** One file of a case as it was detected, and what of it is chosen. A record without a file is empty. */
class CFileRecord : public CDataPack
{
public:
    CFileRecord() = default;
    /** Detects the file for the role and finds its series; all blocks are chosen. */
    CFileRecord(const QString& sFileName, FileRole_e eRole);

    QString FileName() const { return Get(*this, FileRecordKey::FILE_NAME); }
    bool IsValid() const { return Get(*this, FileRecordKey::IS_VALID); }
    /** Whether the file has any known format; one may be known and yet of no use in this place. */
    bool IsIdentified() const { return Get(*this, FileRecordKey::FILE_TYPE) != CODE_UNKNOWN; }
    QVector<qint64> Blocks() const { return Get(*this, FileRecordKey::BLOCKS); }
    void SetBlocks(const QVector<qint64>& blocks) { Set(*this, FileRecordKey::BLOCKS, blocks); }
    QVector<IVector3D> BlockSizes() const;
    qint64 BlockCount() const { return Get(*this, FileRecordKey::BLOCK_SIZES).size() / 3; }
    qint64 TransientCount() const { return Get(*this, FileRecordKey::TRANSIENT_FILES).size(); }
    /** @param bTransient  with the levels of its series */
    SFileSeries Series(bool bTransient) const;
    /** "wing.x\t(2 / 4 grids, 10 transient files)". */
    QString RowText(bool bTransient, bool bGrid) const;

    FileKind_e Kind() const { return FindFormat(int(Get(*this, FileRecordKey::FILE_TYPE))).eKind; }
    /** The file is read as this from now on; other blocks than before are all chosen. */
    void SetDetected(const SPlot3DFile& file);

private:
    void FindSeries(const SPlot3DFile& file);
};

/** The files that make a case, as the files dialog has them. Holds all rules; knows no widget. */
class CCaseRecords
{
public:
    CFileRecord grid;
    CFileRecord q;
    QVector<CFileRecord> functions;
    bool bReadTransient = true;
    QString sDisplayFile;     ///< how the case is to be shown; empty: nothing is said of that
    QString sRestartFile;     ///< the same by a FieldView restart; at most one of the two is there
    bool bNoDataRead = false; ///< the display goes onto the data that the case has, all files are left alone
    bool bHoldsData = false;  ///< there is such a case

    bool HasDisplay() const { return !sDisplayFile.isEmpty() || !sRestartFile.isEmpty(); }
    /** The first thing that is wrong, in the order in which the dialog tells. */
    SFilesProblem Validate() const;
    /** Reads each file in the layout in which it goes with the others, if there is one. */
    void Match();
    /**
     * Leaves out the Q and function files that can't be read with this grid.
     *
     * @return what is wrong with each of them
     */
    QStringList DropUnfit();
    /** What the data layer registers. */
    SPlot3DCaseFiles ToCaseFiles(bool bHole) const;
    /** Files of the largest series; 0 if there is none. */
    qint64 TransientCount() const;
    /** The number of the chosen file in its series; STEADY_TIME without one. */
    double ChosenTime() const;

    // Choosing.
    /** Puts the file where the role wants it, in the place of a former grid or Q file. */
    SFilesProblem SetFile(const QString& sFileName, FileRole_e eRole);
    /** Adds a function file, or puts it in the place of the one at nPlace. */
    SFilesProblem SetFunction(const QString& sFileName, int nPlace = -1);
    /** Puts the file where its content says that it belongs. */
    SFilesProblem AddFile(const QString& sFileName);
    /** Fills in the grid, Q and function files that go with what is chosen by their names, where none is. */
    void AddCompanions();

private:
    SFilesProblem ValidateFields(const CFileRecord& record, const char* sMismatch) const;
    bool Fits(const CFileRecord& record) const;
    bool AllFit() const;
    CFileRecord& Place(const CFileRecord& record, FileRole_e eRole);
    void TakeCompanion(const QString& sFileName, FileRole_e eRole);
    bool IsInSeries(const QString& sFileName) const;
    SFileSeries GridSeries() const;
};

/** What the file is, by its content; where that leaves a doubt, by the ending of its name. */
FileRole_e RoleOfFile(const QString& sFileName);

/** What was detected of files may have changed on disk: the next look is a fresh one. */
void ForgetDetectedFiles();
