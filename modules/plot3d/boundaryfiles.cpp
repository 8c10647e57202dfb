#include "modules/plot3d/boundaryfiles.h"

#include "modules/plot3d/companionfiles.h"
#include "modules/plot3d/transientseries.h"

#include <QDir>
#include <QFileInfo>

namespace {

/** By the endings of the names. */
bool IsOnlyGridOfFolder(const QString& sGridFile, const QFileInfoList& fileList)
{
    const QString sOwn = QFileInfo(sGridFile).absoluteFilePath();
    const QStringList sSeries = FindTransientSeries(sOwn).sFileList;
    return std::none_of(fileList.begin(), fileList.end(), [&](const QFileInfo& file) {
        const QString sName = file.absoluteFilePath();
        return sName != sOwn && HasGridSuffix(sName) && !sSeries.contains(sName);
    });
}

/** Why the record is of another grid; empty if it isn't. Resolves it. */
QString MisfitOf(SBoundaryRecord& record, const QVector<IVector3D>& blocks)
{
    if (record.nBlock < 1 || record.nBlock > blocks.size())
        return QString("it names block %1, the grid has %2").arg(record.nBlock).arg(blocks.size());
    const IVector3D size = blocks[int(record.nBlock - 1)];
    if (ResolveBoundary(record, size))
        return {};
    return QString("a boundary of '%1' lies outside of block %2 (%3 x %4 x %5)")
        .arg(record.sTypeName)
        .arg(record.nBlock)
        .arg(size.i)
        .arg(size.j)
        .arg(size.k);
}

void AddFile(const QString& sFileName, const QVector<IVector3D>& blocks, SGridBoundaries& boundaries)
{
    SFvbndFile file = ReadFvbnd(sFileName);
    if (!file.sError.isEmpty()) {
        boundaries.sMessageList.append(
            file.sError.contains(sFileName) ? file.sError : QString("%1: %2").arg(file.sError, sFileName));
        return;
    }
    if (file.nSkipped > 0)
        boundaries.sMessageList.append(
            QString("%1: skipped %2 line(s) that are no boundary").arg(sFileName).arg(file.nSkipped));
    QVector<SBoundaryRecord> faces;
    for (SBoundaryRecord& record : file.records) {
        if (const QString sMisfit = MisfitOf(record, blocks); !sMisfit.isEmpty()) {
            boundaries.sMessageList.append(
                QString("%1 is not of this grid and is not used: %2").arg(sFileName, sMisfit));
            return;
        }
        if (record.bIsFace)
            faces.append(record);
    }
    boundaries.sMessageList.append(QString("%1: %2 boundary surface(s)").arg(sFileName).arg(faces.size()));
    boundaries.records += faces;
}

} // namespace

QStringList FindFvbndFiles(const QString& sGridFile)
{
    const QFileInfo grid(sGridFile);
    const QFileInfoList fileList = grid.absoluteDir().entryInfoList(QDir::Files, QDir::Name);
    QStringList sAllList, sOwnList;
    for (const QFileInfo& file : fileList) {
        if (file.suffix().compare("fvbnd", Qt::CaseInsensitive) != 0)
            continue;
        sAllList.append(file.absoluteFilePath());
        if (file.completeBaseName() == grid.completeBaseName())
            sOwnList.append(file.absoluteFilePath());
    }
    if (!sOwnList.isEmpty())
        return sOwnList;
    return sAllList.size() == 1 && IsOnlyGridOfFolder(sGridFile, fileList) ? sAllList : QStringList();
}

SGridBoundaries ReadBoundariesOf(const QString& sGridFile, const QVector<IVector3D>& blocks)
{
    SGridBoundaries boundaries;
    for (const QString& sFileName : FindFvbndFiles(sGridFile))
        AddFile(sFileName, blocks, boundaries);
    return boundaries;
}
