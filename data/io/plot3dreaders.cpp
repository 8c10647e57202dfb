#include "data/io/plot3dreaders.h"

#include "data/io/gridio.h"
#include "data/io/solutionio.h"
#include "data/kernels/largearray.h"

#include <bit>

namespace {

/** Whether the block only has another size than expected. */
bool HasOtherSize(const SPlot3DFile& file, const SBlockRequest& request)
{
    const IVector3D size = BlockDimensions(file).value(int(request.nBlock));
    return size != IVector3D() && size != request.size && !file.layout.nIsFormatted &&
           IsDoublePrecisionFormat(file.nCode) == request.bDouble;
}

/** Calls read(device, run, parts) for each run; parts are where its points go in each array. */
template <class Real, class ReadRun>
SLoadResult ReadRuns(const QString& sFileName, std::span<const SPointRun> runs,
                     std::span<const std::span<Real>> arrays, const ReadRun& read)
{
    CReadFile device;
    if (const SLoadResult opened = OpenForLoad(sFileName, device); !opened.IsOk())
        return opened;
    qint64 nDone = 0;
    for (const SPointRun& run : runs) {
        std::array<std::span<Real>, 3> parts;
        for (size_t n = 0; n < arrays.size(); ++n)
            parts[n] = arrays[n].subspan(nDone, run.nCount);
        if (const SLoadResult result = read(device, run, parts); !result.IsOk())
            return result;
        nDone += run.nCount;
    }
    return {};
}

template <class Real>
SLoadResult ReadGrid(const QString& sFileName, const SPlot3DFile& file, qint64 nBlock,
                     std::span<const SPointRun> runs, std::span<const std::span<Real>> arrays)
{
    return ReadRuns<Real>(sFileName, runs, arrays,
                          [&](const CReadFile& device, const SPointRun& run, const auto& parts) {
                              return ReadGridBlock(device, file, nBlock, parts, run);
                          });
}

/** IBlank, 1 where it isn't 0, as the bits of integers of the size of the reals. */
template <class Real>
SLoadResult ReadHoleBits(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock,
                         std::span<Real> bits, const SPointRun& run)
{
    using Integer = std::conditional_t<std::is_same_v<Real, float>, qint32, qint64>;
    CLargeArray<qint32> holes(run.nCount);
    if (holes.IsEmpty())
        return SLoadResult::NoMemory();
    const SLoadResult result = ReadHoles(device, file, nBlock, holes.Span(), run);
    std::transform(holes.Data(), holes.Data() + run.nCount, bits.begin(),
                   [](qint32 n) { return std::bit_cast<Real>(Integer(n)); });
    return result;
}

} // namespace

SLoadResult CPlot3DGridReader::Check(const IVector3D& expected, IVector3D& found) const
{
    const SPlot3DFile file = CGridIO().Detect(m_sFileName, m_known);
    const SBlockRequest request{m_bDouble, m_nBlock, expected};
    SLoadResult result = CheckGrid(file, m_sFileName, request);
    result.bRecognised = file.IsDetected();
    if (!result.IsOk() && HasOtherSize(file, request))
        found = BlockDimensions(file)[int(m_nBlock)];
    return result;
}

SLoadResult CPlot3DGridReader::Read(std::span<const SPointRun> runs,
                                    std::span<const std::span<float>> arrays) const
{
    return ReadGrid(m_sFileName, CGridIO().Detect(m_sFileName, m_known), m_nBlock, runs, arrays);
}

SLoadResult CPlot3DGridReader::Read(std::span<const SPointRun> runs,
                                    std::span<const std::span<double>> arrays) const
{
    return ReadGrid(m_sFileName, CGridIO().Detect(m_sFileName, m_known), m_nBlock, runs, arrays);
}

SLoadResult CPlot3DSolutionReader::Check(const IVector3D& expected, IVector3D&) const
{
    const SPlot3DFile file = CSolutionIO().Detect(m_sFileName, m_known);
    SLoadResult result = CheckSolution(file, {m_bDouble, m_nBlock, expected});
    result.bRecognised = file.IsDetected();
    return result;
}

template <class Real>
SLoadResult CPlot3DSolutionReader::ReadAs(std::span<const SPointRun> runs,
                                          std::span<const std::span<Real>> arrays) const
{
    const SPlot3DFile file = CSolutionIO().Detect(m_sFileName, m_known);
    const bool bBits = m_bIntegers && IsIntegerVariable(file, m_nVariable);
    return ReadRuns<Real>(m_sFileName, runs, arrays,
                          [&](const CReadFile& device, const SPointRun& run, const auto& parts) {
                              return bBits ? ReadHoleBits(device, file, m_nBlock, parts[0], run)
                                           : ReadVariable(device, file, m_nBlock, m_nVariable, parts[0], run);
                          });
}

SLoadResult CPlot3DSolutionReader::Read(std::span<const SPointRun> runs,
                                        std::span<const std::span<float>> arrays) const
{
    return ReadAs(runs, arrays);
}

SLoadResult CPlot3DSolutionReader::Read(std::span<const SPointRun> runs,
                                        std::span<const std::span<double>> arrays) const
{
    return ReadAs(runs, arrays);
}
