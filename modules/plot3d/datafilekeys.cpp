#include "modules/plot3d/datafilekeys.h"

#include "cases/display/displaydocument.h"
#include "cases/files/casestorage.h"
#include "modules/plot3d/plot3dkeys.h"
#include "simulation/isimulationidentity.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

constexpr const char *GRID = "dataFiles.gridFile", *GRIDS = "dataFiles.gridFiles", *Q = "dataFiles.qFile",
                     *QS = "dataFiles.qFiles", *FUNCTIONS = "dataFiles.functionFiles",
                     *BLOCKS = "dataFiles.gridFileIndexList";
constexpr int SERIES = 2; // files from which on it is one

QString Find(const QString& sStored, const QStringList& sFolderList)
{
    if (QDir::isAbsolutePath(sStored) && QFileInfo(sStored).isFile())
        return sStored;
    for (const QString& sFolder : sFolderList) {
        const QString sName = QDir::isAbsolutePath(sStored) ? QFileInfo(sStored).fileName() : sStored;
        if (const QString sFile = QDir(sFolder).absoluteFilePath(sName); QFileInfo(sFile).isFile())
            return sFile;
    }
    return sStored;
}

QStringList FindAll(const QJsonValue& value, const QStringList& sFolderList)
{
    QStringList sFileList;
    for (const QJsonValue& name : value.toArray())
        if (name.isString())
            sFileList.append(Find(name.toString(), sFolderList));
    return sFileList;
}

/** Leaves the levels that are listed; with fewer than two the file is alone. */
void KeepLevels(CFileRecord& record, const QStringList& sFileList)
{
    const QStringList sLevelList = Get(record, FileRecordKey::TRANSIENT_FILES);
    const QStringList sTimeList = Get(record, FileRecordKey::TRANSIENT_TIMES);
    QStringList sKeptList, sKeptTimeList;
    for (int n = 0; n < sLevelList.size(); ++n)
        if (sFileList.contains(sLevelList[n])) {
            sKeptList.append(sLevelList[n]);
            sKeptTimeList.append(sTimeList.value(n));
        }
    const bool bSeries = sKeptList.size() >= SERIES;
    Set(record, FileRecordKey::IS_TRANSIENT, bSeries);
    Set(record, FileRecordKey::TRANSIENT_FILES, bSeries ? sKeptList : QStringList());
    Set(record, FileRecordKey::TRANSIENT_TIMES, bSeries ? sKeptTimeList : QStringList());
}

/** The record of a file and its levels; the current one if neither key is there. */
CFileRecord ReadRecord(const QJsonObject& keys, const char* sFileKey, const char* sListKey, FileRole_e eRole,
                       const CFileRecord& current, const QStringList& sFolderList)
{
    QStringList sFileList = FindAll(keys[sListKey], sFolderList);
    QString sFile = Find(keys[sFileKey].toString(), sFolderList);
    if (sFile.isEmpty())
        sFile = sFileList.value(0);
    if (sFile.isEmpty())
        return current;
    CFileRecord record(sFile, eRole);
    KeepLevels(record, sFileList);
    return record;
}

QVector<qint64> ReadBlocks(const QJsonArray& array)
{
    QVector<qint64> blocks;
    for (const QJsonValue& value : array)
        blocks.append(qint64(std::clamp(value.toDouble(-1.0), -1.0, 1e9)));
    return blocks;
}

QJsonArray FullNames(const QStringList& sNameList, const QDir& directory)
{
    QJsonArray array;
    for (const QString& sName : sNameList)
        array.append(directory.absoluteFilePath(sName));
    return array;
}

} // namespace

QJsonObject TakeDataFileKeys(const CDataPack& pack)
{
    QJsonObject keys;
    const QDir directory(Get(pack, SimulationKey::DIRECTORY));
    const auto addFile = [&](const char* sKey, const QString& sName) {
        if (!sName.isEmpty())
            keys[sKey] = directory.absoluteFilePath(sName);
    };
    const auto addList = [&](const char* sKey, const QStringList& sNameList, int nLeast) {
        if (sNameList.size() >= nLeast)
            keys[sKey] = FullNames(sNameList, directory);
    };
    addFile(GRID, Get(pack, Plot3DKey::GRID_FILE));
    addFile(Q, Get(pack, Plot3DKey::Q_FILE));
    addList(GRIDS, Get(pack, Plot3DKey::GRID_FILES), SERIES);
    addList(QS, Get(pack, Plot3DKey::Q_FILES), SERIES);
    addList(FUNCTIONS, Get(pack, Plot3DKey::FUNCTION_FILES), 1);
    QJsonArray blocks;
    for (const qint64 nBlock : Get(pack, Plot3DKey::GRID_BLOCKS))
        blocks.append(nBlock);
    if (!blocks.isEmpty())
        keys[BLOCKS] = blocks;
    return keys;
}

CCaseRecords ReadDataFileKeys(const QJsonObject& keys, const CCaseRecords& current,
                              const QStringList& sFolderList)
{
    CCaseRecords records = current;
    records.grid = ReadRecord(keys, GRID, GRIDS, RoleGrid, current.grid, sFolderList);
    records.q = ReadRecord(keys, Q, QS, RoleQ, current.q, sFolderList);
    if (keys.contains(FUNCTIONS)) {
        records.functions.clear();
        for (const QString& sFile : FindAll(keys[FUNCTIONS], sFolderList))
            records.functions.append(CFileRecord(sFile, RoleFunction));
    }
    if (keys.contains(BLOCKS))
        records.grid.SetBlocks(ReadBlocks(keys[BLOCKS].toArray()));
    records.Match();
    records.bReadTransient |= records.grid.TransientCount() > 0 || records.q.TransientCount() > 0;
    return records;
}

bool AreSameFiles(const CCaseRecords& records, const CCaseRecords& others)
{
    const SPlot3DCaseFiles files = records.ToCaseFiles(true), otherFiles = others.ToCaseFiles(true);
    const auto isSame = [](const SFileSeries& series, const SFileSeries& other) {
        return series.sFileName == other.sFileName && series.levels == other.levels;
    };
    return isSame(files.grid, otherFiles.grid) && isSame(files.q, otherFiles.q) &&
           files.blockIndices == otherFiles.blockIndices &&
           std::equal(files.functions.begin(), files.functions.end(), otherFiles.functions.begin(),
                      otherFiles.functions.end(), [&](const auto& function, const auto& other) {
                          return isSame(function.series, other.series);
                      });
}

QString ReadDataOfDisplay(const QString& sDisplayFile, bool bFormatAlone, CCaseRecords& records)
{
    QByteArray bytes;
    if (!ReadWholeFile(sDisplayFile, bytes))
        return QString("Could not open:\n%1").arg(sDisplayFile);
    if (!SDisplayDocument::IsJson(bytes))
        return "Only JSON .disp files are supported here.";
    SDisplayDocument document;
    if (document.FromBytes(bytes) != StoredOk)
        return "Invalid display file format.";
    if (bFormatAlone)
        return {};
    ForgetDetectedFiles();
    records = ReadDataFileKeys(document.overrides, {}, {QFileInfo(sDisplayFile).absolutePath()});
    return records.grid.IsEmpty() || !QFileInfo(records.grid.FileName()).isFile()
               ? "Display file does not reference an accessible grid file."
               : QString();
}
