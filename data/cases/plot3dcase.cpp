#include "data/cases/plot3dcase.h"

#include "data/cases/plot3dmatch.h"
#include "data/io/filefaults.h"
#include "data/io/gridio.h"
#include "data/io/solutionio.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <numeric>
#include <set>

namespace {

constexpr int HOLE_INDEX = 3; // variable of a grid file read as fields

bool IsCoordinates(const SPlot3DFile& file) { return file.eKind == KindXyz || file.eKind == KindXyzb; }

/** The names given, then "F1.2" for the second variable of the first file. */
QStringList FunctionNames(const QStringList& sGiven, int nFunctionFile, int nCount)
{
    QStringList sNameList = sGiven.mid(0, nCount);
    for (int n = 0; n < nCount; ++n) {
        if (n == sNameList.size())
            sNameList.append(QString());
        if (sNameList[n].isEmpty())
            sNameList[n] = QString("F%1.%2").arg(nFunctionFile).arg(n + 1);
    }
    return sNameList;
}

QStringList VariableNames(const SPlot3DFile& file, bool bHole)
{
    QStringList sNameList;
    if (file.eKind == KindQ)
        sNameList =
            file.layout.bIs3D ? QStringList{"R", "RU", "RV", "RW", "RE"} : QStringList{"R", "RU", "RV", "RE"};
    else if (IsCoordinates(file))
        sNameList = QStringList{"X", "Y", "Z", "Hole"}.mid(0, bHole ? HOLE_INDEX + 1 : HOLE_INDEX);
    return sNameList;
}

/** The file variable of this name; made if there is none. */
qint64 FileVariable(qint64 nSimulationId, const QString& sName)
{
    CVariableManager& manager = CVariableManager::Instance();
    const qint64 nId = manager.FindByName(nSimulationId, sName, LocationNode);
    if (nId != NO_ID)
        return nId;
    auto* const pVariable = new IVariable(nSimulationId, true);
    pVariable->SetName(sName);
    return pVariable->GetId();
}

/** Registers all variables of a file for all blocks at a time. */
void RegisterLevel(qint64 nSimulationId, const SPlot3DFieldFile& field, const SFileSeries::SLevel& level,
                   const QVector<qint64>& itemIds)
{
    const bool bCoordinates = IsCoordinates(field.file);
    for (int nVariable = 0; nVariable < field.sNameList.size(); ++nVariable) {
        const qint64 nId = FileVariable(nSimulationId, field.sNameList[nVariable]);
        if (bCoordinates && nVariable == HOLE_INDEX)
            CVariableManager::Instance().GetVariable(nId)->SetHoleVariable(true);
        for (int n = 0; n < itemIds.size(); ++n) {
            const qint64 nPlace = field.places[n];
            if (itemIds[n] == NO_ID || (!bCoordinates && nVariable >= VariableCount(field.file, nPlace)))
                continue; // function files may hold fewer in a later block
            CSolutionManager::SSolutionFile part;
            part.sFileName = level.sFileName;
            part.nBlock = nPlace;
            part.nVariable = nVariable;
            part.dimensions = field.file.blocks[int(nPlace)].size;
            part.known = field.file;
            CSolutionManager::Instance().AddSolution(nSimulationId, itemIds[n], nId, -1, part, level.dTime);
        }
    }
}

void RegisterGrids(qint64 nSimulationId, const SPlot3DCase& plot3DCase, const QVector<qint64>& itemIds)
{
    for (const SFileSeries::SLevel& level : plot3DCase.grid.Levels())
        for (int n = 0; n < itemIds.size(); ++n)
            if (itemIds[n] != NO_ID)
                CGridManager::Instance().AddGrid(nSimulationId, itemIds[n], -1,
                                                 {.sFileName = level.sFileName,
                                                  .nBlock = plot3DCase.blockIndices[n],
                                                  .dimensions = plot3DCase.blocks[n],
                                                  .known = plot3DCase.gridFile},
                                                 level.dTime);
}

QString CheckLevels(const SFileSeries& series, const SPlot3DFile& file, const char* sMismatch)
{
    for (const SFileSeries::SLevel& level : series.levels)
        if (!IsLevelOf(level.sFileName, series.sFileName, file))
            return QString(sMismatch).arg(level.sFileName);
    return {};
}

/** Takes the chosen blocks of the grid; otherwise the error. */
QString ExamineGrid(const SPlot3DCaseFiles& files, const SPlot3DFile& grid, SPlot3DCase& result)
{
    result.grid = files.grid;
    result.gridFile = grid;
    if (!result.gridFile.IsDetected() || result.gridFile.layout.nIsFormatted)
        return QString("The file %1 is not valid").arg(files.grid.sFileName);
    const QVector<IVector3D> blocks = BlockDimensions(result.gridFile);
    result.blockIndices = files.blockIndices;
    if (result.blockIndices.isEmpty()) {
        result.blockIndices.resize(blocks.size());
        std::iota(result.blockIndices.begin(), result.blockIndices.end(), 0);
    }
    for (const qint64 nBlock : std::as_const(result.blockIndices)) {
        if (nBlock < 0 || nBlock >= blocks.size())
            return QString("Block index exceeds grid size in %1").arg(files.grid.sFileName);
        result.blocks.append(blocks[int(nBlock)]);
    }
    return CheckLevels(files.grid, grid, "Grid file %1 does not match the other levels");
}

/** Adds a file of fields; otherwise the error. */
QString ExamineFields(const SFileSeries& series, const SPlot3DFile& file, const char* sMismatch,
                      SPlot3DCase& result)
{
    SPlot3DFieldFile field;
    field.series = series;
    field.file = file;
    if (!QFileInfo(series.sFileName).isFile() || !field.file.IsDetected())
        return QString("The file %1 is not valid").arg(series.sFileName);
    field.places =
        PlacesOfBlocks(BlockDimensions(field.file), BlockDimensions(result.gridFile), result.blockIndices);
    if (field.places.isEmpty())
        return QString(sMismatch).arg(series.sFileName);
    result.fields.push_back(field);
    return CheckLevels(series, file, sMismatch);
}

SReferenceState ReferenceOf(double dMach)
{
    SReferenceState reference;
    const bool bKnown = dMach > 0.0 && dMach < 100.0;
    reference.dVelocity = bKnown ? dMach : 1.0;
    reference.bFreeStreamAssumed = !bKnown;
    return reference;
}

/** The free stream, of the header of the first Q block. */
void ExamineHeader(const SFileSeries& q, const SPlot3DFile& file, SPlot3DCase& result)
{
    const auto header = CSolutionIO().GetSolutionHeader(q.Levels().first().sFileName, 0, file);
    if (header && (*header)[0] > 0.0) {
        result.dFreeStreamMach = (*header)[0];
        result.dAngleOfAttack = (*header)[1];
    }
}

QString ExamineFunctions(const SPlot3DCaseFiles& files, const SMatchedFiles& matched, SPlot3DCase& result)
{
    for (int n = 0; n < files.functions.size(); ++n) {
        const auto& [series, sNameList] = files.functions[n];
        QString sError = ExamineFields(series, matched.functions[n],
                                       "Function file %1 does not match its grid file", result);
        if (!sError.isEmpty())
            return sError;
        SPlot3DFieldFile& field = result.fields.back();
        field.sNameList = field.file.eKind == KindFunction
                              ? FunctionNames(sNameList, n + 1, VariableCount(field.file))
                              : VariableNames(field.file, files.bHole);
    }
    return {};
}

QString ExamineFiles(const SPlot3DCaseFiles& files, SPlot3DCase& result)
{
    const SMatchedFiles matched = DetectCaseFiles(files);
    if (const QString sError = ExamineGrid(files, matched.grid, result); !sError.isEmpty())
        return sError;
    SPlot3DFieldFile coordinates;
    coordinates.series = files.grid;
    coordinates.file = AsFields(matched.grid);
    coordinates.places = result.blockIndices;
    coordinates.sNameList = VariableNames(coordinates.file, files.bHole);
    result.fields.push_back(coordinates);
    if (!files.q.sFileName.isEmpty()) {
        if (const QString sError =
                ExamineFields(files.q, matched.q, "Q file %1 does not match its grid file", result);
            !sError.isEmpty())
            return sError;
        SPlot3DFieldFile& field = result.fields.back();
        field.sNameList = field.file.eKind == KindFunction ? FunctionNames({}, 0, VariableCount(field.file))
                                                           : VariableNames(field.file, files.bHole);
        ExamineHeader(files.q, matched.q, result);
    }
    return ExamineFunctions(files, matched, result);
}

} // namespace

QVector<SFileSeries::SLevel> SFileSeries::Levels() const
{
    return levels.isEmpty() ? QVector<SLevel>{{sFileName, STEADY_TIME}} : levels;
}

SPlot3DCaseFiles::SPlot3DCaseFiles(const QString& sGridFile, const QStringList& sQFileList,
                                   const QStringList& sFunctionFileList)
{
    grid.sFileName = sGridFile;
    q.sFileName = sQFileList.value(0);
    for (int n = 0; sQFileList.size() > 1 && n < sQFileList.size(); ++n)
        q.levels.append({sQFileList[n], TimeOfFile(sQFileList[n], n + 1)});
    for (const QString& sFileName : sFunctionFileList)
        functions.append(SFunctionFile{{sFileName, {}}, {}});
}

QVector<double> SPlot3DCase::Times() const
{
    std::set<double> times;
    for (const SFileSeries::SLevel& level : grid.levels)
        times.insert(level.dTime);
    for (const SPlot3DFieldFile& field : fields)
        for (const SFileSeries::SLevel& level : field.series.levels)
            times.insert(level.dTime);
    return QVector<double>(times.begin(), times.end());
}

double TimeOfFile(const QString& sFileName, double dFallback)
{
    static const QRegularExpression s_number("(\\d+)(?!.*\\d)");
    const QRegularExpressionMatch match = s_number.match(QFileInfo(sFileName).fileName());
    return match.hasMatch() ? match.captured(1).toDouble() : dFallback;
}

bool IsLevelOf(const QString& sFileName, const QString& sSeriesFile, const SPlot3DFile& ofSeries)
{
    const QFileInfo level(sFileName);
    if (!level.isFile())
        return false;
    if (sFileName == sSeriesFile || level.size() == QFileInfo(sSeriesFile).size())
        return true;
    const SPlot3DFile file = ofSeries.eKind == KindGrid ? CGridIO().Detect(sFileName, ofSeries)
                                                        : CSolutionIO().Detect(sFileName, ofSeries);
    return file.IsDetected() && file.eKind == ofSeries.eKind &&
           BlockDimensions(file) == BlockDimensions(ofSeries) &&
           VariableCount(file) >= VariableCount(ofSeries);
}

SPlot3DCase ExaminePlot3DCase(const SPlot3DCaseFiles& files)
{
    SPlot3DCase result;
    result.sError = ExamineFiles(files, result);
    result.reference = ReferenceOf(result.dFreeStreamMach);
    return result;
}

void RegisterPlot3DData(qint64 nSimulationId, const SPlot3DCase& plot3DCase, const QVector<qint64>& itemIds)
{
    Q_ASSERT(itemIds.size() == plot3DCase.blocks.size());
    FileFaults::Forget();
    RegisterGrids(nSimulationId, plot3DCase, itemIds);
    for (const SPlot3DFieldFile& field : plot3DCase.fields)
        for (const SFileSeries::SLevel& level : field.series.Levels())
            RegisterLevel(nSimulationId, field, level, itemIds);
}

SPlot3DCase RegisterPlot3DCase(qint64 nSimulationId, const SPlot3DCaseFiles& files)
{
    SPlot3DCase result = ExaminePlot3DCase(files);
    if (!result.sError.isEmpty())
        return result;
    QVector<qint64> itemIds(result.blocks.size());
    std::iota(itemIds.begin(), itemIds.end(), 1);
    RegisterPlot3DData(nSimulationId, result, itemIds);
    CreateConservativeVariables(nSimulationId, "", result.reference);
    return result;
}
