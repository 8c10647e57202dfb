#include "modules/plot3d/filerecords.h"

#include "data/cases/plot3dmatch.h"
#include "data/io/gridio.h"
#include "data/io/solutionio.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "modules/plot3d/companionfiles.h"
#include "modules/plot3d/layouttext.h"
#include "modules/plot3d/transientseries.h"

#include <QFileInfo>
#include <QSet>

#include <numeric>

namespace {

QVector<qint64> Flat(const QVector<IVector3D>& sizes)
{
    QVector<qint64> flat;
    flat.reserve(3 * sizes.size());
    for (const IVector3D& size : sizes)
        flat << size.i << size.j << size.k;
    return flat;
}

constexpr const char *Q_MISMATCH = "Q file %1 does not match its grid file",
                     *FUNCTION_MISMATCH = "Function file %1 does not match its grid file";
const SFilesProblem NOT_IDENTIFIED{"Invalid file", "The selected file could not be identified"};

} // namespace

CFileRecord::CFileRecord(const QString& sFileName, FileRole_e eRole)
{
    const QString sFullName = QFileInfo(sFileName).absoluteFilePath();
    Set(*this, FileRecordKey::FILE_NAME, sFullName);
    SetDetected(eRole == RoleGrid ? CGridIO().Detect(sFullName) : CSolutionIO().Detect(sFullName));
}

void CFileRecord::SetDetected(const SPlot3DFile& file)
{
    const QVector<qint64> sizes = Flat(BlockDimensions(file));
    if (sizes != Get(*this, FileRecordKey::BLOCK_SIZES)) {
        QVector<qint64> blocks(file.blocks.size());
        std::iota(blocks.begin(), blocks.end(), 0);
        SetBlocks(blocks);
    }
    Set(*this, FileRecordKey::FILE_TYPE, file.nCode);
    Set(*this, FileRecordKey::IS_VALID, file.IsDetected() && !file.layout.nIsFormatted);
    Set(*this, FileRecordKey::BLOCK_SIZES, sizes);
    Set(*this, FileRecordKey::LAYOUT, DescribeLayout(file));
    if (IsValid())
        FindSeries(file);
}

void CFileRecord::FindSeries(const SPlot3DFile& file)
{
    const STransientSeries series = FindTransientSeries(FileName());
    QStringList sFileList;
    QStringList sTimeList;
    for (int n = 0; n < series.sFileList.size(); ++n) {
        if (!IsLevelOf(series.sFileList[n], FileName(), file))
            continue;
        sFileList.append(series.sFileList[n]);
        sTimeList.append(QString::number(series.times[n], 'g', 17));
    }
    const bool bSeries = sFileList.size() >= 2;
    Set(*this, FileRecordKey::IS_TRANSIENT, bSeries);
    Set(*this, FileRecordKey::TRANSIENT_FILES, bSeries ? sFileList : QStringList());
    Set(*this, FileRecordKey::TRANSIENT_TIMES, bSeries ? sTimeList : QStringList());
}

QVector<IVector3D> CFileRecord::BlockSizes() const
{
    return GroupIVectors(Get(*this, FileRecordKey::BLOCK_SIZES));
}

SFileSeries CFileRecord::Series(bool bTransient) const
{
    SFileSeries series;
    series.sFileName = FileName();
    const QStringList sFileList = Get(*this, FileRecordKey::TRANSIENT_FILES);
    const QStringList sTimeList = Get(*this, FileRecordKey::TRANSIENT_TIMES);
    for (int n = 0; bTransient && n < sFileList.size(); ++n)
        series.levels.append({sFileList[n], sTimeList.value(n).toDouble()});
    return series;
}

QString CFileRecord::RowText(bool bTransient, bool bGrid) const
{
    const QString sName = QFileInfo(FileName()).fileName();
    const qint64 nChosen = Blocks().size();
    QString sBlocks;
    if (bGrid)
        sBlocks = nChosen < BlockCount() ? QString("%1 / %2 grids").arg(nChosen).arg(BlockCount())
                                         : QString("%1 grids").arg(BlockCount());
    QString sSeries;
    if (bTransient && TransientCount() > 0)
        sSeries = QString(bGrid ? ", %1 transient files" : "%1 transient files").arg(TransientCount());
    if (sBlocks.isEmpty() && sSeries.isEmpty())
        return sName;
    return QString("%1\t(%2%3)").arg(sName, sBlocks, sSeries);
}

SFilesProblem CCaseRecords::Validate() const
{
    if (bNoDataRead && !bHoldsData)
        return {"No Data Read",
                "The simulation has no data loaded.\n\n'No Data Read' applies a display on top of existing "
                "data \u2014 load data first, or uncheck 'No Data Read'."};
    if (bNoDataRead)
        return {};
    if (!grid.IsValid())
        return {"Grid File", "Please select a valid grid file"};
    for (const qint64 nBlock : grid.Blocks())
        if (nBlock < 0 || nBlock >= grid.BlockCount())
            return {"Grid File", QString("Block index exceeds grid size in %1").arg(grid.FileName())};
    if (!q.IsEmpty())
        if (const SFilesProblem problem = ValidateFields(q, Q_MISMATCH); !problem.IsNone())
            return problem;
    if (grid.Blocks().isEmpty())
        return {"Grid File", QString("Please select the blocks for %1").arg(grid.FileName())};
    for (const CFileRecord& function : functions)
        if (const SFilesProblem problem = ValidateFields(function, FUNCTION_MISMATCH); !problem.IsNone())
            return problem;
    return {};
}

SFilesProblem CCaseRecords::ValidateFields(const CFileRecord& record, const char* sMismatch) const
{
    if (!record.IsValid())
        return {"Invalid File", QString("The file %1 is not valid").arg(record.FileName())};
    if (!Fits(record))
        return {"Dimensions Mismatch", QString(sMismatch).arg(record.FileName())};
    return {};
}

bool CCaseRecords::AllFit() const
{
    return (q.IsEmpty() || Fits(q)) && std::all_of(functions.begin(), functions.end(),
                                                   [this](const auto& record) { return Fits(record); });
}

void CCaseRecords::Match()
{
    if (!grid.IsValid() || AllFit())
        return;
    SPlot3DCaseFiles files = ToCaseFiles(true);
    if (grid.Blocks().size() == grid.BlockCount())
        files.blockIndices.clear(); // all, of whatever number
    const SMatchedFiles matched = DetectCaseFiles(files);
    grid.SetDetected(matched.grid);
    if (!q.IsEmpty())
        q.SetDetected(matched.q);
    for (int n = 0; n < functions.size(); ++n)
        functions[n].SetDetected(matched.functions[n]);
}

QStringList CCaseRecords::DropUnfit()
{
    Match();
    QStringList sProblemList;
    const auto isUnfit = [&](const CFileRecord& record, const char* sMismatch) {
        const SFilesProblem problem = record.IsEmpty() ? SFilesProblem() : ValidateFields(record, sMismatch);
        if (!problem.IsNone())
            sProblemList.append(problem.sText);
        return !problem.IsNone();
    };
    if (isUnfit(q, Q_MISMATCH))
        q = {};
    functions.erase(
        std::remove_if(functions.begin(), functions.end(),
                       [&](const CFileRecord& record) { return isUnfit(record, FUNCTION_MISMATCH); }),
        functions.end());
    return sProblemList;
}

bool CCaseRecords::Fits(const CFileRecord& record) const
{
    const QVector<qint64> chosen = grid.Blocks();
    return chosen.isEmpty() || !PlacesOfBlocks(record.BlockSizes(), grid.BlockSizes(), chosen).isEmpty();
}

/**
 * Numbered grids are levels only if the Q files count in the same way: a folder may hold several meshes
 * ("mesh1.x", "mesh2.x") beside the results of one.
 */
SFileSeries CCaseRecords::GridSeries() const
{
    SFileSeries series = grid.Series(bReadTransient);
    QSet<double> times;
    for (const SFileSeries::SLevel& level : q.Series(bReadTransient).levels)
        times.insert(level.dTime);
    if (q.IsEmpty())
        return series;
    const auto isForeign = [&](const SFileSeries::SLevel& level) { return !times.contains(level.dTime); };
    series.levels.erase(std::remove_if(series.levels.begin(), series.levels.end(), isForeign),
                        series.levels.end());
    if (series.levels.size() < 2)
        series.levels.clear();
    return series;
}

SPlot3DCaseFiles CCaseRecords::ToCaseFiles(bool bHole) const
{
    SPlot3DCaseFiles files;
    files.bHole = bHole;
    files.grid = GridSeries();
    files.blockIndices = grid.Blocks();
    files.q = q.Series(bReadTransient);
    for (const CFileRecord& function : functions)
        files.functions.append(SPlot3DCaseFiles::SFunctionFile{function.Series(bReadTransient),
                                                               Get(function, FileRecordKey::VARIABLE_NAMES)});
    return files;
}

qint64 CCaseRecords::TransientCount() const
{
    qint64 nCount = std::max(grid.TransientCount(), q.TransientCount());
    for (const CFileRecord& function : functions)
        nCount = std::max(nCount, function.TransientCount());
    return nCount;
}

double CCaseRecords::ChosenTime() const
{
    for (const SFileSeries& series : {q.Series(bReadTransient), GridSeries()})
        for (const SFileSeries::SLevel& level : series.levels)
            if (level.sFileName == series.sFileName)
                return level.dTime;
    return STEADY_TIME;
}

SFilesProblem CCaseRecords::SetFile(const QString& sFileName, FileRole_e eRole)
{
    if (eRole == RoleFunction)
        return SetFunction(sFileName);
    const CFileRecord record(sFileName, eRole);
    if (!record.IsIdentified())
        return NOT_IDENTIFIED;
    Place(record, eRole);
    Match();
    return {};
}

SFilesProblem CCaseRecords::SetFunction(const QString& sFileName, int nPlace)
{
    const CFileRecord record(sFileName, RoleFunction);
    if (!record.IsIdentified())
        return NOT_IDENTIFIED;
    for (const CFileRecord& function : std::as_const(functions))
        if (function.FileName() == record.FileName())
            return {"Function Exists", "The selected function file was already selected"};
    if (nPlace < 0 || nPlace >= functions.size())
        functions.append(record);
    else
        functions[nPlace] = record;
    Match();
    return {};
}

bool CCaseRecords::IsInSeries(const QString& sFileName) const
{
    for (const CFileRecord& record : QVector<CFileRecord>{grid, q} + functions)
        if (Get(record, FileRecordKey::TRANSIENT_FILES).contains(sFileName))
            return true;
    return false;
}

SFilesProblem CCaseRecords::AddFile(const QString& sFileName)
{
    const QString sFullName = QFileInfo(sFileName).absoluteFilePath();
    if (IsInSeries(sFullName))
        return {};
    const FileRole_e eRole = RoleOfFile(sFullName);
    return eRole == RoleNone ? NOT_IDENTIFIED : SetFile(sFullName, eRole);
}

CFileRecord& CCaseRecords::Place(const CFileRecord& record, FileRole_e eRole)
{
    if (eRole == RoleFunction) {
        functions.append(record);
        return functions.last();
    }
    CFileRecord& place = eRole == RoleGrid ? grid : q;
    place = record;
    return place;
}

/** Takes the file in if it is what the role says, and goes with the others. */
void CCaseRecords::TakeCompanion(const QString& sFileName, FileRole_e eRole)
{
    if (sFileName.isEmpty())
        return;
    const FileKind_e eKind = eRole == RoleGrid ? KindGrid : eRole == RoleQ ? KindQ : KindFunction;
    CCaseRecords with = *this;
    CFileRecord& companion = with.Place(CFileRecord(sFileName, eRole), eRole);
    with.Match();
    if (companion.Kind() == eKind && with.grid.IsValid() && with.AllFit())
        *this = with;
}

void CCaseRecords::AddCompanions()
{
    if (grid.IsEmpty() && !q.IsEmpty())
        TakeCompanion(FindCompanion(q.FileName(), RoleQ, RoleGrid), RoleGrid);
    if (grid.IsEmpty() && !functions.isEmpty())
        TakeCompanion(FindCompanion(functions.first().FileName(), RoleFunction, RoleGrid), RoleGrid);
    if (!grid.IsValid())
        return;
    if (q.IsEmpty())
        TakeCompanion(FindCompanion(grid.FileName(), RoleGrid, RoleQ), RoleQ);
    if (functions.isEmpty())
        TakeCompanion(FindCompanion(grid.FileName(), RoleGrid, RoleFunction), RoleFunction);
}

FileRole_e RoleOfFile(const QString& sFileName)
{
    const FileKind_e eSolution = CSolutionIO().Detect(sFileName).eKind;
    const bool bGrid = CGridIO().Detect(sFileName).IsDetected();
    if (bGrid && HasGridSuffix(sFileName))
        return RoleGrid;
    if (eSolution == KindQ)
        return RoleQ;
    if (eSolution == KindFunction)
        return RoleFunction;
    return bGrid ? RoleGrid : RoleNone;
}

void ForgetDetectedFiles()
{
    CGridManager::Instance().EmptyCache();
    CSolutionManager::Instance().EmptyCache();
}
