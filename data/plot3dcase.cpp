#include "data/plot3dcase.h"

#include "data/gridmanager.h"
#include "data/io/gridio.h"
#include "data/io/solutionio.h"
#include "data/solutionmanager.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int HOLE_INDEX = 3; // variable of a grid file read as fields

QStringList VariableNames(const SPlot3DFile& file, qint64 nFunctionFile)
{
    switch (file.eKind) {
    case KindQ:
        return file.layout.bIs3D ? QStringList{"R", "RU", "RV", "RW", "RE"}
                                 : QStringList{"R", "RU", "RV", "RE"};
    case KindXyz:
    case KindXyzb:
        return {"X", "Y", "Z", "Hole"};
    case KindFunction:
        break;
    default:
        return {};
    }
    QStringList sNameList;
    for (int n = 0; n < VariableCount(file); ++n)
        sNameList << QString("F%1.%2").arg(nFunctionFile).arg(n + 1);
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
void RegisterFields(qint64 nSimulationId, const QString& sFileName, const SPlot3DFile& file,
                    qint64 nFunctionFile, double dTime)
{
    const QStringList sNameList = VariableNames(file, nFunctionFile);
    const bool bCoordinates = file.eKind == KindXyz || file.eKind == KindXyzb;
    for (int nVariable = 0; nVariable < sNameList.size(); ++nVariable) {
        const qint64 nId = FileVariable(nSimulationId, sNameList[nVariable]);
        if (bCoordinates && nVariable == HOLE_INDEX)
            CVariableManager::Instance().GetVariable(nId)->SetHoleVariable(true);
        for (int nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
            if (!bCoordinates && nVariable >= VariableCount(file, nBlock))
                continue; // function files may hold fewer in a later block
            CSolutionManager::SSolutionFile part;
            part.sFileName = sFileName;
            part.nBlock = nBlock;
            part.nVariable = nVariable;
            part.dimensions = file.blocks[nBlock].size;
            CSolutionManager::Instance().AddSolution(nSimulationId, nBlock + 1, nId, -1, part, dTime);
        }
    }
}

/** A detected solution file that fits the grid; otherwise the error. */
QString CheckFields(const QString& sFileName, const SPlot3DFile& file, const QVector<IVector3D>& blocks,
                    const char* sMismatch)
{
    if (!QFileInfo(sFileName).isFile() || !file.IsDetected())
        return QString("The file %1 is not valid").arg(sFileName);
    if (BlockDimensions(file) != blocks)
        return QString(sMismatch).arg(sFileName);
    return {};
}

struct SField
{
    QString sFileName;
    SPlot3DFile file;
    qint64 nFunctionFile = 0; ///< from 1; 0 for others
    double dTime = STEADY_TIME;
};

SReferenceState ReferenceOf(double dMach)
{
    SReferenceState reference;
    const bool bKnown = dMach > 0.0 && dMach < 100.0;
    reference.dVelocity = bKnown ? dMach : 1.0;
    reference.bFreeStreamAssumed = !bKnown;
    return reference;
}

} // namespace

double TimeOfFile(const QString& sFileName, double dFallback)
{
    static const QRegularExpression s_number("(\\d+)(?!.*\\d)");
    const QRegularExpressionMatch match = s_number.match(QFileInfo(sFileName).fileName());
    return match.hasMatch() ? match.captured(1).toDouble() : dFallback;
}

SPlot3DCase RegisterPlot3DCase(qint64 nSimulationId, const SPlot3DCaseFiles& files)
{
    SPlot3DCase result;
    const CSolutionIO solutionIO;
    const SPlot3DFile grid = CGridIO().Detect(files.sGridFile);
    if (!grid.IsDetected() || grid.layout.nIsFormatted) {
        result.sError = QString("The file %1 is not valid").arg(files.sGridFile);
        return result;
    }
    result.blocks = BlockDimensions(grid);

    std::vector<SField> fields;
    fields.push_back({files.sGridFile, solutionIO.Detect(files.sGridFile)});
    for (int n = 0; n < files.sQFileList.size(); ++n) {
        const bool bSeries = files.sQFileList.size() > 1;
        const QString sFileName = files.sQFileList[n];
        fields.push_back({sFileName, solutionIO.Detect(sFileName), 0,
                          bSeries ? TimeOfFile(sFileName, n + 1) : STEADY_TIME});
        if (result.sError.isEmpty())
            result.sError = CheckFields(sFileName, fields.back().file, result.blocks,
                                        "Q file %1 does not match its grid file");
    }
    for (int n = 0; n < files.sFunctionFileList.size(); ++n) {
        const QString sFileName = files.sFunctionFileList[n];
        fields.push_back({sFileName, solutionIO.Detect(sFileName), n + 1});
        if (result.sError.isEmpty())
            result.sError = CheckFields(sFileName, fields.back().file, result.blocks,
                                        "Function file %1 does not match its grid file");
    }
    if (!result.sError.isEmpty())
        return result;
    if (!files.sQFileList.isEmpty()) {
        const auto header = solutionIO.GetSolutionHeader(files.sQFileList.first(), 0);
        if (header && (*header)[0] > 0.0) {
            result.dFreeStreamMach = (*header)[0];
            result.dAngleOfAttack = (*header)[1];
        }
    }
    result.reference = ReferenceOf(result.dFreeStreamMach);

    for (int n = 0; n < result.blocks.size(); ++n)
        CGridManager::Instance().AddGrid(nSimulationId, n + 1, -1, {files.sGridFile, n, result.blocks[n]},
                                         STEADY_TIME);
    for (const SField& field : fields)
        RegisterFields(nSimulationId, field.sFileName, field.file, field.nFunctionFile, field.dTime);
    CreateConservativeVariables(nSimulationId, "", result.reference);
    return result;
}
