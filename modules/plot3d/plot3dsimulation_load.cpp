// CPlot3DSimulation: from files to items and registered data.
#include "cases/files/movedfiles.h"
#include "data/cases/dataformat.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/storedvariables.h"
#include "data/variables/variablemanager.h"
#include "frame/messagesink.h"
#include "frame/widgetmanager.h"
#include "modules/plot3d/block.h"
#include "modules/plot3d/boundaryfiles.h"
#include "modules/plot3d/boundaryitem.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/selectablekind.h"
#include "simulation/simulationmanager.h"

#include <QDir>
#include <QFileInfo>

namespace {

/** What makes two boundaries the same. */
QString KeyOf(const SBoundaryRecord& record)
{
    QString sKey = QString("%1/%2/%3/%4/%5")
                       .arg(record.nBlock)
                       .arg(record.nType)
                       .arg(record.nFace)
                       .arg(record.bFlip)
                       .arg(record.nDirection);
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        sKey += QString("/%1-%2").arg(record.min[nAxis]).arg(record.max[nAxis]);
    return sKey + '/' + record.sTypeName;
}

/** Puts a file where it belongs; gives the problem in one line. */
QString AddNamed(CCaseRecords& records, const QString& sFileName, FileRole_e eRole)
{
    if (!QFileInfo(sFileName).isReadable())
        return QString("can't read %1").arg(sFileName);
    if (!CFileRecord(sFileName, eRole).IsIdentified())
        return QString("%1 could not be identified").arg(sFileName);
    const SFilesProblem problem = records.SetFile(sFileName, eRole);
    return problem.IsNone() ? QString() : QString("%1: %2").arg(sFileName, problem.sText);
}

QString FileLine(const char* sRole, const CFileRecord& record, bool bTransient)
{
    const QString sSeries = bTransient && record.TransientCount() > 0
                                ? QString(", %1 transient files").arg(record.TransientCount())
                                : QString();
    return QString("%1: %2\n    %3%4")
        .arg(sRole, record.FileName(), Get(record, FileRecordKey::LAYOUT), sSeries);
}

} // namespace

QString CPlot3DSimulation::Load(const CCaseRecords& records)
{
    Q_ASSERT(GetId() != NO_ID);
    if (const SFilesProblem problem = records.Validate(); !problem.IsNone())
        return problem.sText;
    const SPlot3DCase examined = ExaminePlot3DCase(records.ToCaseFiles(OffersHole()));
    if (!examined.sError.isEmpty())
        return examined.sError;
    BeginLoad();
    WriteCaseFiles(*this, records, examined);
    RegisterCase(examined, UpdateBlocks(records, examined));
    UpdateBoundaries();
    DescribeFiles(records);
    if (GetName().isEmpty())
        SetName(QFileInfo(records.grid.FileName()).completeBaseName());
    FinishLoad();
    return {};
}

QString CPlot3DSimulation::OpenData(const SDataFiles& files)
{
    CCaseRecords records;
    records.bReadTransient = false;
    QString sProblem = AddNamed(records, files.sGridFile, RoleGrid);
    for (const QString& sFileName : files.sSolutionFileList)
        if (sProblem.isEmpty())
            sProblem = AddNamed(records, sFileName, RoleQ);
    for (const QString& sFileName : files.sFunctionFileList)
        if (sProblem.isEmpty())
            sProblem = AddNamed(records, sFileName, RoleFunction);
    return sProblem.isEmpty() ? Load(records) : sProblem;
}

CCaseRecords CPlot3DSimulation::GetRecords() const
{
    ForgetDetectedFiles();
    return ReadCaseFiles(
        *this, [this](const QString& sFormerName) { return FindMovedFile(sFormerName, CaseFolder()); });
}

/** Of the case's own file; empty if it has none. */
QString CPlot3DSimulation::CaseFolder() const
{
    return GetFilePath().isEmpty() ? QString() : QFileInfo(GetFilePath()).absolutePath();
}

QString CPlot3DSimulation::Reload() { return Load(GetRecords()); }

bool CPlot3DSimulation::FromBytes(const QByteArray& bytes, double dVersion)
{
    if (!CBlockCase::FromBytes(bytes, dVersion))
        return false;
    if (GetId() != NO_ID)
        RegisterStoredCase();
    return true;
}

/** Items are as they were stored; of their files only the data are registered, as far as they are there. */
void CPlot3DSimulation::RegisterStoredCase()
{
    const CCaseRecords records = FindCaseFiles(*this, GetName(), CaseFolder());
    if (records.grid.IsEmpty())
        return; // a case without files
    CCaseRecords usable = records;
    QStringList sProblemList = usable.DropUnfit();
    const SPlot3DCase examined = ExaminePlot3DCase(usable.ToCaseFiles(OffersHole()));
    if (!examined.sError.isEmpty())
        sProblemList = QStringList(examined.sError);
    for (const QString& sProblem : std::as_const(sProblemList))
        CMessageSink::Instance().Log(QString("%1 opens without data: %2").arg(GetName(), sProblem));
    SetDataProblems(sProblemList);
    if (!examined.sError.isEmpty())
        return;
    // The files may have moved along with the case. What is missing stays named.
    if (!sProblemList.isEmpty())
        WriteFileNames(*this, records);
    else
        WriteCaseFiles(*this, records, examined);
    const QString sDirectory = Get(*this, SimulationKey::DIRECTORY);
    QHash<qint64, CBlock*> blocks; // by index in the file
    for (CItem* const pItem : GetItems(KindBlock))
        blocks.insert(static_cast<CBlock*>(pItem)->GetFileIndex(), static_cast<CBlock*>(pItem));
    QVector<qint64> itemIds;
    for (int n = 0; n < examined.blocks.size(); ++n) {
        CBlock* const pBlock = blocks.value(examined.blockIndices[n]);
        itemIds.append(pBlock ? pBlock->GetId() : NO_ID);
        if (pBlock)
            pBlock->SetSource(records.grid.FileName(),
                              QDir(sDirectory).relativeFilePath(records.grid.FileName()),
                              examined.blockIndices[n], examined.blocks[n]);
    }
    RegisterCase(examined, itemIds);
    DescribeFiles(records);
}

/** One block for each chosen one; those that are as before stay. Gives their ids. */
QVector<qint64> CPlot3DSimulation::UpdateBlocks(const CCaseRecords& records, const SPlot3DCase& examined)
{
    const QString sFileName = records.grid.FileName();
    const QString sRelative = QFileInfo(sFileName).fileName();
    QHash<qint64, qint64> former; // by index in the file
    QVector<qint64> stale;
    for (CItem* const pItem : GetItems(KindBlock)) {
        const auto* const pBlock = static_cast<CBlock*>(pItem);
        stale.append(pBlock->GetId());
        if (pBlock->GetFileName() == sFileName)
            former.insert(pBlock->GetFileIndex(), pBlock->GetId());
    }
    QVector<qint64> itemIds;
    for (int n = 0; n < examined.blocks.size(); ++n) {
        const qint64 nFileIndex = examined.blockIndices[n];
        auto* pBlock = static_cast<CBlock*>(GetItem(former.take(nFileIndex)));
        if (!pBlock || pBlock->GetSize() != examined.blocks[n])
            pBlock = static_cast<CBlock*>(CreateItem(KindBlock, 0, true, n, NO_ID, 0));
        pBlock->SetSource(sFileName, sRelative, nFileIndex, examined.blocks[n]);
        itemIds.append(pBlock->GetId());
    }
    const QSet<qint64> kept(itemIds.begin(), itemIds.end());
    stale.erase(std::remove_if(stale.begin(), stale.end(), [&](qint64 nId) { return kept.contains(nId); }),
                stale.end());
    RemoveWithData(stale);
    return itemIds;
}

void CPlot3DSimulation::RegisterCase(const SPlot3DCase& examined, const QVector<qint64>& itemIds)
{
    CSolutionManager::Instance().RemoveSimulation(GetId());
    CGridManager::Instance().RemoveSimulation(GetId());
    RegisterPlot3DData(GetId(), examined, itemIds);
    CVariableManager::Instance().RemoveUnusedFileVariables(GetId());
    m_case = examined;
    CreateConservativeVariables("");
    MakeStoredVariables(GetId());
    UpdateTimes();
}

/** The time table follows the levels. Times and steps are both the number in the file's name. */
void CPlot3DSimulation::UpdateTimes()
{
    const QVector<double> times = m_case.Times();
    QVector<double> former;
    for (qint64 n = 1; n <= GetTimeCount(); ++n)
        former.append(IndexToTime(double(n)));
    if (times == former)
        return;
    ClearTimes();
    for (const double dTime : times)
        AddTime(dTime, qint64(std::min(dTime, 1e18)));
    CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nViewId : GetViewIds())
        if (times.isEmpty()) {
            manager.SetTransient(nViewId, GetId(), false);
            manager.SetTime(nViewId, GetId(), STEADY_TIME);
        }
    manager.SlotSimulationTransientChanged(GetId());
}

/** The faces that the files beside the grid name, for the blocks of the case; what is told of the files. */
QVector<SBoundaryRecord> CPlot3DSimulation::ReadBoundaries() const
{
    SGridBoundaries read = ReadBoundariesOf(m_case.grid.sFileName, BlockDimensions(m_case.gridFile));
    for (const QString& sMessage : std::as_const(read.sMessageList)) {
        CMessageSink::Instance().Log(sMessage);
        CWidgetManager::Instance().SetStatusText(sMessage);
    }
    const QSet<qint64> chosen(m_case.blockIndices.begin(), m_case.blockIndices.end());
    const auto isLeftOut = [&](const SBoundaryRecord& record) { return !chosen.contains(record.nBlock - 1); };
    read.records.erase(std::remove_if(read.records.begin(), read.records.end(), isLeftOut),
                       read.records.end());
    return read.records;
}

void CPlot3DSimulation::UpdateBoundaries()
{
    QMultiHash<QString, qint64> former;
    for (CItem* const pItem : GetItems(KindBoundarySurface))
        former.insert(KeyOf(static_cast<CBoundaryItem*>(pItem)->GetRecord()), pItem->GetId());
    QVector<SBoundaryRecord> added;
    for (const SBoundaryRecord& record : ReadBoundaries())
        if (const auto same = former.find(KeyOf(record)); same != former.end())
            former.erase(same);
        else
            added.append(record);
    RemoveWithData(former.values().toVector());
    QHash<qint64, CItem*> blocks; // by number
    for (CItem* const pItem : GetItems(KindBlock))
        blocks.insert(static_cast<CBlock*>(pItem)->GetFileIndex() + 1, pItem);
    for (const SBoundaryRecord& record : std::as_const(added)) {
        auto* const pItem =
            static_cast<CBoundaryItem*>(CreateItem(KindBoundarySurface, 0, true, GetItemCount(), NO_ID, 0));
        pItem->SetRecord(record);
        pItem->SetParentId(blocks.value(record.nBlock)->GetId(), true);
    }
}

void CPlot3DSimulation::DescribeFiles(const CCaseRecords& records)
{
    QStringList lines = {FileLine("Grid", records.grid, records.bReadTransient)};
    if (!records.q.IsEmpty())
        lines << FileLine("Q", records.q, records.bReadTransient);
    for (const CFileRecord& function : records.functions)
        lines << FileLine("Function", function, records.bReadTransient);
    m_sToolTip = lines.join('\n');
}
