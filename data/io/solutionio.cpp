#include "data/io/solutionio.h"

#include "data/io/filefaults.h"
#include "data/io/partialreads.h"
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/kernels/largearray.h"
#include "data/solutionmanager.h"
#include "data/solutions/storagesolution.h"
#include "frame/messagesink.h"

namespace {

/** IBlank as the field "Hole": the solution decides how it keeps integers. */
template <class Real>
SLoadResult LoadHoles(const CReadFile& device, const SPlot3DFile& file, CStorageSolution<Real>& solution)
{
    const SPlot3DBlock& block = file.blocks[int(solution.GetFileIndex())];
    CLargeArray<qint32> holes(block.PointCount());
    if (holes.IsEmpty())
        return SLoadResult::NoMemory();
    const SLoadResult result =
        ReadHoles(device, file, solution.GetFileIndex(), holes.Span(), WholeRun(block));
    if (result.IsOk())
        solution.StoreIntegers(holes.Data(), holes.Size());
    return result;
}

template <class Real> SLoadResult Load(const SPlot3DFile& file, CStorageSolution<Real>& solution)
{
    const qint64 nBlock = solution.GetFileIndex();
    const int nVariable = int(solution.GetVariableIndex());
    const SBlockRequest request{solution.IsDoublePrecision(), nBlock, solution.GetDimensions()};
    if (const SLoadResult check = CheckSolution(file, request); !check.IsOk())
        return check;
    CReadFile device;
    if (const SLoadResult opened = OpenForLoad(solution.GetFileName(), device); !opened.IsOk())
        return opened;
    const SPlot3DBlock& block = file.blocks[int(nBlock)];
    if (!solution.Allocate(block.PointCount()))
        return SLoadResult::NoMemory();
    if (IsIntegerVariable(file, nVariable))
        return LoadHoles(device, file, solution);
    return ReadVariable(device, file, nBlock, nVariable, solution.Values(), WholeRun(block));
}

} // namespace

SPlot3DFile CSolutionIO::Detect(const QString& sFileName, const SPlot3DFile& like) const
{
    return CSolutionManager::Instance().GetFileCache().Find(sFileName, like, [&] {
        const SPlot3DFile file = DetectPlot3DLike(sFileName, like);
        return file.IsDetected() ? file : DetectPlot3DSolution(sFileName, HasBlocksOf(like));
    });
}

QVector<IVector3D> CSolutionIO::GetSolutionBlockDimensions(const QString& sFileName) const
{
    return BlockDimensions(Detect(sFileName));
}

int CSolutionIO::GetSolutionVariableCount(const QString& sFileName) const
{
    return VariableCount(Detect(sFileName));
}

std::optional<std::array<double, 4>> CSolutionIO::GetSolutionHeader(const QString& sFileName, qint64 nBlock,
                                                                    const SPlot3DFile& like) const
{
    CReadFile device;
    return device.Open(sFileName) ? ReadQHeader(device, Detect(sFileName, like), nBlock) : std::nullopt;
}

template <class Real> int CSolutionIO::LoadSolution(CStorageSolution<Real>& solution) const
{
    const QString sFileName = solution.GetFileName();
    const SPlot3DFile file = Detect(sFileName, solution.GetKnownFile());
    const SLoadResult result = Load(file, solution);
    if (!result.sMessage.isEmpty())
        CMessageSink::Instance().Log(result.sMessage, result.nLevel);
    FileFaults::Report(sFileName, file, result);
    return result.eStatus;
}

template <class Real>
bool CSolutionIO::ReadValues(const CStorageSolution<Real>& solution, const SIJKRange& range,
                             std::span<double> out) const
{
    const SPlot3DFile file = Detect(solution.GetFileName(), solution.GetKnownFile());
    const qint64 nBlock = solution.GetFileIndex();
    const int nVariable = int(solution.GetVariableIndex());
    const SBlockRequest request{solution.IsDoublePrecision(), nBlock, solution.GetDimensions()};
    CReadFile device;
    if (!CheckSolution(file, request).IsOk() || !device.Open(solution.GetFileName()))
        return false;
    const CRangeRuns runs(solution.GetShape(), range);
    std::vector<Real> values(runs.Length());
    for (qint64 nRun = 0; nRun < runs.Count(); ++nRun) {
        if (!ReadVariable(device, file, nBlock, nVariable, std::span(values), runs.Run(nRun)).IsOk())
            return false;
        std::copy(values.begin(), values.end(), out.begin() + nRun * runs.Length());
    }
    return true;
}

template int CSolutionIO::LoadSolution(CStorageSolution<float>& solution) const;
template int CSolutionIO::LoadSolution(CStorageSolution<double>& solution) const;
template bool CSolutionIO::ReadValues(const CStorageSolution<float>&, const SIJKRange&,
                                      std::span<double>) const;
template bool CSolutionIO::ReadValues(const CStorageSolution<double>&, const SIJKRange&,
                                      std::span<double>) const;
