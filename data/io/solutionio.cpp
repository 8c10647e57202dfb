#include "data/io/solutionio.h"

#include "data/io/partialreads.h"
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/kernels/largearray.h"
#include "data/solutionmanager.h"
#include "data/solutions/storagesolution.h"
#include "frame/messagesink.h"

namespace {

int Report(const SLoadResult& result)
{
    if (!result.sMessage.isEmpty())
        CMessageSink::Instance().Log(result.sMessage, result.nLevel);
    return result.eStatus;
}

/** IBlank as the field "Hole": the solution decides how it keeps integers. */
template <class Real>
int LoadHoles(const CReadFile& device, const SPlot3DFile& file, CStorageSolution<Real>& solution)
{
    const SPlot3DBlock& block = file.blocks[int(solution.GetFileIndex())];
    CLargeArray<qint32> holes(block.PointCount());
    if (holes.IsEmpty())
        return LoadNoMemory;
    const SLoadResult result =
        ReadHoles(device, file, solution.GetFileIndex(), holes.Span(), WholeRun(block));
    if (result.IsOk())
        solution.StoreIntegers(holes.Data(), holes.Size());
    return Report(result);
}

} // namespace

SPlot3DFile CSolutionIO::Detect(const QString& sFileName) const
{
    CFileCache& cache = CSolutionManager::Instance().GetFileCache();
    if (const std::optional<SPlot3DFile> known = cache.Find(sFileName))
        return *known;
    const SPlot3DFile file = DetectPlot3DSolution(sFileName);
    if (file.IsDetected())
        cache.Store(sFileName, file);
    return file;
}

QVector<IVector3D> CSolutionIO::GetSolutionBlockDimensions(const QString& sFileName) const
{
    return BlockDimensions(Detect(sFileName));
}

int CSolutionIO::GetSolutionVariableCount(const QString& sFileName) const
{
    return VariableCount(Detect(sFileName));
}

std::optional<std::array<double, 4>> CSolutionIO::GetSolutionHeader(const QString& sFileName,
                                                                    qint64 nBlock) const
{
    CReadFile device;
    return device.Open(sFileName) ? ReadQHeader(device, Detect(sFileName), nBlock) : std::nullopt;
}

template <class Real> int CSolutionIO::LoadSolution(CStorageSolution<Real>& solution) const
{
    const QString sFileName = solution.GetFileName();
    const SPlot3DFile file = Detect(sFileName);
    const qint64 nBlock = solution.GetFileIndex();
    const int nVariable = int(solution.GetVariableIndex());
    const SBlockRequest request{solution.IsDoublePrecision(), nBlock, solution.GetDimensions()};
    if (const SLoadResult check = CheckSolution(file, request); !check.IsOk())
        return Report(check);
    CReadFile device;
    if (const SLoadResult opened = OpenForLoad(sFileName, device); !opened.IsOk())
        return Report(opened);
    const SPlot3DBlock& block = file.blocks[int(nBlock)];
    if (!solution.Allocate(block.PointCount()))
        return LoadNoMemory;
    if (IsIntegerVariable(file, nVariable))
        return LoadHoles(device, file, solution);
    return Report(ReadVariable(device, file, nBlock, nVariable, solution.Values(), WholeRun(block)));
}

template <class Real>
bool CSolutionIO::ReadValues(const CStorageSolution<Real>& solution, const SIJKRange& range,
                             std::span<double> out) const
{
    const SPlot3DFile file = Detect(solution.GetFileName());
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
