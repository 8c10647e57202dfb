#include "data/io/gridio.h"

#include "data/gridmanager.h"
#include "data/grids/storagegrid.h"
#include "data/io/filefaults.h"
#include "data/io/partialreads.h"
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "frame/messagesink.h"

namespace {

bool IsStructuredCode(int nCode) { return nCode >= 2 && nCode <= CODE_CGNS_STRUCTURED; }
bool IsUnstructuredCode(int nCode) { return nCode == CODE_STAR_CD || nCode == CODE_CGNS_UNSTRUCTURED; }

int Report(const QString& sFileName, const SPlot3DFile& file, const SLoadResult& result)
{
    if (!result.sMessage.isEmpty())
        CMessageSink::Instance().Log(result.sMessage, result.nLevel);
    FileFaults::Report(sFileName, file, result);
    return result.eStatus;
}

/** Whether the grid only has another size than its block in the file. */
template <class Real> bool HasOtherSize(const CStorageGrid<Real>& grid, const SPlot3DFile& file)
{
    const IVector3D size = BlockDimensions(file).value(int(grid.GetFileIndex()));
    return size != IVector3D() && size != grid.GetDimensions() && !file.layout.nIsFormatted &&
           IsDoublePrecisionFormat(file.nCode) == grid.IsDoublePrecision();
}

} // namespace

SPlot3DFile CGridIO::Detect(const QString& sFileName, const SPlot3DFile& like) const
{
    return CGridManager::Instance().GetFileCache().Find(sFileName, like, [&] {
        const SPlot3DFile file = DetectPlot3DLike(sFileName, like);
        return file.IsDetected() ? file : DetectPlot3DGrid(sFileName, HasBlocksOf(like));
    });
}

int CGridIO::DetectGridFormat(const QString& sFileName, bool bStructured, bool bUnstructured,
                              const SPlot3DFile& like) const
{
    const int nCode = Detect(sFileName, like).nCode;
    if ((IsStructuredCode(nCode) && !bStructured) || (IsUnstructuredCode(nCode) && !bUnstructured))
        return CODE_UNKNOWN;
    return nCode;
}

QVector<IVector3D> CGridIO::GetGridBlockDimensions(const QString& sFileName) const
{
    return BlockDimensions(Detect(sFileName));
}

IVector3D CGridIO::GetGridBlockDimensions(const QString& sFileName, qint64 nBlock) const
{
    return GetGridBlockDimensions(sFileName).value(int(nBlock));
}

template <class Real> int CGridIO::LoadGrid(CStorageGrid<Real>& grid) const
{
    const QString sFileName = grid.GetFileName();
    CMessageSink::Instance().Log(QString("Trying to load grid from %1").arg(sFileName), 2);
    const SPlot3DFile file = Detect(sFileName, grid.GetKnownFile());
    const qint64 nBlock = grid.GetFileIndex();
    const SBlockRequest request{grid.IsDoublePrecision(), nBlock, grid.GetDimensions()};
    if (const SLoadResult check = CheckGrid(file, sFileName, request); !check.IsOk()) {
        if (!HasOtherSize(grid, file))
            return Report(sFileName, file, check);
        CMessageSink::Instance().Log(check.sMessage, check.nLevel);
        grid.SetDimensions(BlockDimensions(file)[int(nBlock)]);
        return LoadNever;
    }
    CMessageSink::Instance().Log(QString("use fopen to open file %1").arg(sFileName), 2);
    CReadFile device;
    if (const SLoadResult opened = OpenForLoad(sFileName, device); !opened.IsOk())
        return Report(sFileName, file, opened);
    if (!grid.Allocate(file.blocks[int(nBlock)].PointCount())) {
        CMessageSink::Instance().Log(QString("failed to assign location of %1").arg(sFileName), 2);
        return LoadNoMemory;
    }
    const std::array<std::span<Real>, 3> xyz = {grid.Coordinates(0), grid.Coordinates(1),
                                                grid.Coordinates(2)};
    return Report(sFileName, file,
                  ReadGridBlock(device, file, nBlock, xyz, WholeRun(file.blocks[int(nBlock)])));
}

template <class Real>
bool CGridIO::ReadPoints(const CStorageGrid<Real>& grid, const SIJKRange& range,
                         const SPointBuffers& out) const
{
    const SPlot3DFile file = Detect(grid.GetFileName(), grid.GetKnownFile());
    const qint64 nBlock = grid.GetFileIndex();
    const SBlockRequest request{grid.IsDoublePrecision(), nBlock, grid.GetDimensions()};
    CReadFile device;
    if (!CheckGrid(file, grid.GetFileName(), request).IsOk() || !device.Open(grid.GetFileName()))
        return false;
    const CRangeRuns runs(grid.GetShape(), range);
    const qint64 nLength = runs.Length();
    std::vector<Real> points(3 * nLength); // of two-dimensional files the third stays zero
    const std::span<Real> all(points);
    const std::array<std::span<Real>, 3> xyz = {all.first(nLength), all.subspan(nLength, nLength),
                                                all.last(nLength)};
    for (qint64 nRun = 0; nRun < runs.Count(); ++nRun) {
        if (!ReadGridBlock(device, file, nBlock, xyz, runs.Run(nRun)).IsOk())
            return false;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            std::copy(xyz[nAxis].begin(), xyz[nAxis].end(), out.Axis(nAxis).begin() + nRun * nLength);
    }
    return true;
}

template int CGridIO::LoadGrid(CStorageGrid<float>& grid) const;
template int CGridIO::LoadGrid(CStorageGrid<double>& grid) const;
template bool CGridIO::ReadPoints(const CStorageGrid<float>&, const SIJKRange&, const SPointBuffers&) const;
template bool CGridIO::ReadPoints(const CStorageGrid<double>&, const SIJKRange&, const SPointBuffers&) const;
