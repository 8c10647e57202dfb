#include "modules/plot3d/packrecords.h"

#include "cases/files/movedfiles.h"
#include "frame/packs/bytestream.h"
#include "modules/plot3d/plot3dkeys.h"
#include "simulation/isimulationidentity.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <numeric>

namespace {

/** Relative where the file lies in the directory or below it. */
QString StoredName(const QString& sFileName, const QString& sDirectory)
{
    const QString sRelative = QDir(sDirectory).relativeFilePath(sFileName);
    return sFileName.isEmpty() || sRelative.startsWith("..") ? sFileName : sRelative;
}

QStringList StoredNames(const SFileSeries& series, const QString& sDirectory)
{
    QStringList sNameList;
    if (series.sFileName.isEmpty())
        return sNameList;
    for (const SFileSeries::SLevel& level : series.Levels())
        sNameList.append(StoredName(level.sFileName, sDirectory));
    return sNameList;
}

QString FullName(const QString& sStored, const QString& sDirectory, const LocateFile& locate)
{
    if (sStored.isEmpty())
        return {};
    const QString sFullName = QDir(sDirectory).absoluteFilePath(sStored);
    const QString sMoved = locate && !QFileInfo(sFullName).isFile() ? locate(sFullName) : QString();
    return sMoved.isEmpty() ? sFullName : sMoved;
}

/** Empty for all blocks in their order. */
QVector<qint64> StoredBlocks(const QVector<qint64>& blocks, qint64 nCount)
{
    QVector<qint64> all(int(nCount), 0);
    std::iota(all.begin(), all.end(), 0);
    return blocks == all ? QVector<qint64>() : blocks;
}

void WriteVariables(CDataPack& pack, const CCaseRecords& records, const SPlot3DCase& examined)
{
    QVector<qint64> counts;
    QStringList sNameList;
    const size_t nFirst = examined.fields.size() - size_t(records.functions.size());
    for (size_t n = nFirst; n < examined.fields.size(); ++n) {
        counts.append(examined.fields[n].sNameList.size());
        sNameList += examined.fields[n].sNameList;
    }
    Set(pack, Plot3DKey::FUNCTION_VARIABLE_COUNTS, counts);
    Set(pack, Plot3DKey::FUNCTION_VARIABLE_NAMES, sNameList);
}

/** Names that were given, for each function file; those that only count are made anew. */
void ReadVariables(const CDataPack& pack, CCaseRecords& records)
{
    static const QRegularExpression s_counted("^F\\d+\\.\\d+$");
    const QVector<qint64> counts = Get(pack, Plot3DKey::FUNCTION_VARIABLE_COUNTS);
    QStringList sNameList = Get(pack, Plot3DKey::FUNCTION_VARIABLE_NAMES);
    sNameList.replaceInStrings(s_counted, "");
    for (int n = 0; n < records.functions.size(); ++n) {
        const int nCount = int(std::clamp<qint64>(counts.value(n), 0, sNameList.size()));
        Set(records.functions[n], FileRecordKey::VARIABLE_NAMES, sNameList.mid(0, nCount));
        sNameList = sNameList.mid(nCount);
    }
}

/** The fields of a key behind module and path. */
struct SKeyFiles
{
    QString sDirectory, sGridFile, sQFile;
    QStringList sFunctionFileList;
    QVector<qint64> blocks;
    bool bReadTransient = true;

    friend bool operator==(const SKeyFiles&, const SKeyFiles&) = default;
};

bool ReadKey(const QByteArray& key, qint64& nModuleId, SKeyFiles& files)
{
    CByteReader reader(key);
    QString sFilePath;
    reader.Read(nModuleId);
    reader.Read(sFilePath);
    for (QString* const pText : {&files.sDirectory, &files.sGridFile, &files.sQFile})
        reader.Read(*pText);
    reader.Read(files.sFunctionFileList);
    reader.Read(files.blocks);
    reader.Read(files.bReadTransient);
    return reader.IsOk() && !files.sGridFile.isEmpty();
}

/** The files of the records that don't exist. */
QStringList MissingFiles(const CCaseRecords& records)
{
    QStringList sMissingList;
    for (const CFileRecord& record : QVector<CFileRecord>{records.grid, records.q} + records.functions)
        if (!record.IsEmpty() && !QFileInfo(record.FileName()).isFile())
            sMissingList.append(record.FileName());
    return sMissingList;
}

} // namespace

void WriteFileNames(CDataPack& pack, const CCaseRecords& records, const QString& sGiven)
{
    const QString sDirectory = sGiven.isEmpty() ? QFileInfo(records.grid.FileName()).absolutePath() : sGiven;
    Set(pack, SimulationKey::DIRECTORY, sDirectory);
    Set(pack, Plot3DKey::GRID_FILE, StoredName(records.grid.FileName(), sDirectory));
    Set(pack, Plot3DKey::Q_FILE, StoredName(records.q.FileName(), sDirectory));
    QStringList sFunctionList;
    for (const CFileRecord& function : records.functions)
        sFunctionList.append(StoredName(function.FileName(), sDirectory));
    Set(pack, Plot3DKey::FUNCTION_FILES, sFunctionList);
    Set(pack, Plot3DKey::GRID_BLOCKS, StoredBlocks(records.grid.Blocks(), records.grid.BlockCount()));
    Set(pack, Plot3DKey::IS_READ_TRANSIENT, records.bReadTransient);
}

void WriteCaseFiles(CDataPack& pack, const CCaseRecords& records, const SPlot3DCase& examined,
                    const QString& sGiven)
{
    WriteFileNames(pack, records, sGiven);
    const QString sDirectory = Get(pack, SimulationKey::DIRECTORY);
    Set(pack, Plot3DKey::GRID_FILES, StoredNames(examined.grid, sDirectory));
    Set(pack, Plot3DKey::Q_FILES, StoredNames(records.q.Series(records.bReadTransient), sDirectory));
    WriteVariables(pack, records, examined);
    Set(pack, Plot3DKey::HEADER_MACH, examined.dFreeStreamMach);
    Set(pack, Plot3DKey::ANGLE_OF_ATTACK, examined.dAngleOfAttack);
}

CCaseRecords ReadCaseFiles(const CDataPack& pack, const LocateFile& locate)
{
    CCaseRecords records;
    const QString sDirectory = Get(pack, SimulationKey::DIRECTORY);
    const auto full = [&](const QString& sStored) { return FullName(sStored, sDirectory, locate); };
    records.bReadTransient = Get(pack, Plot3DKey::IS_READ_TRANSIENT);
    if (const QString sGrid = full(Get(pack, Plot3DKey::GRID_FILE)); !sGrid.isEmpty())
        records.grid = CFileRecord(sGrid, RoleGrid);
    if (const QVector<qint64> blocks = Get(pack, Plot3DKey::GRID_BLOCKS); !blocks.isEmpty())
        records.grid.SetBlocks(blocks);
    if (const QString sQ = full(Get(pack, Plot3DKey::Q_FILE)); !sQ.isEmpty())
        records.q = CFileRecord(sQ, RoleQ);
    for (const QString& sFunction : Get(pack, Plot3DKey::FUNCTION_FILES))
        records.functions.append(CFileRecord(full(sFunction), RoleFunction));
    records.Match();
    ReadVariables(pack, records);
    return records;
}

CCaseRecords FindCaseFiles(const CDataPack& pack, const QString& sCaseName, const QString& sCaseFolder)
{
    const LocateFile findMoved = [&](const QString& sFormerName) {
        return FindMovedFile(sFormerName, sCaseFolder);
    };
    ForgetDetectedFiles(); // files may have come back since they were last looked for
    CCaseRecords records = ReadCaseFiles(pack, findMoved);
    const QStringList sMissingList = MissingFiles(records);
    const QString sFolder = sMissingList.isEmpty() ? QString() : AskForMissingFiles(sCaseName, sMissingList);
    if (sFolder.isEmpty())
        return records;
    return ReadCaseFiles(pack, [&](const QString& sFormerName) {
        const QString sMoved = findMoved(sFormerName);
        return sMoved.isEmpty() ? FindFileBelow(sFormerName, sFolder) : sMoved;
    });
}

QByteArray MakeDataFileKey(qint64 nModuleId, const QString& sFilePath, const CDataPack& pack)
{
    CByteWriter writer;
    writer.Write(nModuleId);
    writer.Write(sFilePath);
    writer.Write(Get(pack, SimulationKey::DIRECTORY));
    writer.Write(Get(pack, Plot3DKey::GRID_FILE));
    writer.Write(Get(pack, Plot3DKey::Q_FILE));
    writer.Write(Get(pack, Plot3DKey::FUNCTION_FILES));
    writer.Write(Get(pack, Plot3DKey::GRID_BLOCKS));
    writer.Write(Get(pack, Plot3DKey::IS_READ_TRANSIENT));
    return writer.Take();
}

bool ReadDataFileKey(const QByteArray& key, qint64 nModuleId, CDataPack& pack)
{
    SKeyFiles files;
    qint64 nKeyModule = NO_ID;
    if (!ReadKey(key, nKeyModule, files) || nKeyModule != nModuleId)
        return false;
    Set(pack, SimulationKey::DIRECTORY, files.sDirectory);
    Set(pack, Plot3DKey::GRID_FILE, files.sGridFile);
    Set(pack, Plot3DKey::Q_FILE, files.sQFile);
    Set(pack, Plot3DKey::FUNCTION_FILES, files.sFunctionFileList);
    Set(pack, Plot3DKey::GRID_BLOCKS, files.blocks);
    Set(pack, Plot3DKey::IS_READ_TRANSIENT, files.bReadTransient);
    return true;
}

bool AreSameDataFiles(const QByteArray& key, const QByteArray& otherKey)
{
    SKeyFiles files, otherFiles;
    qint64 nModuleId = NO_ID, nOtherModuleId = NO_ID;
    return ReadKey(key, nModuleId, files) && ReadKey(otherKey, nOtherModuleId, otherFiles) &&
           nModuleId == nOtherModuleId && files == otherFiles;
}
