#include "data/io/plot3dread.h"

#include "data/kernels/byteswap.h"
#include "data/kernels/parallel.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace {

constexpr qint64 PIECE_SIZE = 1 << 21; // [bytes] for one thread: a huge page, so that no two touch the same
constexpr qint64 CHUNK_SIZE = 1 << 18; // [bytes] read, then swapped while it is in the cache

SLoadResult ShortRead() { return SLoadResult::Failed("Failed to read from file"); }

bool IsBlock(const SPlot3DFile& file, qint64 nBlock) { return nBlock >= 0 && nBlock < file.blocks.size(); }

QString SizeText(const IVector3D& size) { return QString("%1 %2 %3").arg(size.i).arg(size.j).arg(size.k); }

bool IsWithin(const SPointRun& run, const SPlot3DBlock& block)
{
    return run.nFirst >= 0 && run.nCount >= 0 && run.nFirst + run.nCount <= block.PointCount();
}

/** Calls read(nBegin, nEnd) for chunks of nCount values of nValueSize bytes, until one gives false. */
template <class Read> bool ReadInChunks(qint64 nCount, qint64 nValueSize, const Read& read)
{
    std::atomic<bool> bOk = true;
    RunRanges(nCount, PIECE_SIZE / nValueSize, [&](qint64, qint64 nBegin, qint64 nEnd) {
        const qint64 nStep = CHUNK_SIZE / nValueSize;
        for (qint64 n = nBegin; n < nEnd && bOk; n += nStep)
            if (!read(n, std::min(n + nStep, nEnd)))
                bOk = false;
    });
    return bOk;
}

template <class Real>
bool ReadReals(const CReadFile& device, qint64 nOffset, bool bSwapped, std::span<Real> values)
{
    return ReadInChunks(qint64(values.size()), sizeof(Real), [&](qint64 nBegin, qint64 nEnd) {
        const std::span<Real> chunk = values.subspan(nBegin, nEnd - nBegin);
        if (!device.Read(nOffset + nBegin * qint64(sizeof(Real)), std::as_writable_bytes(chunk)))
            return false;
        if (bSwapped)
            SwapBytes(chunk);
        return true;
    });
}

/** 1 for each integer that isn't 0, whatever its byte order, and 0. */
template <class Int, class Value>
bool ReadFlags(const CReadFile& device, qint64 nOffset, std::span<Value> values)
{
    return ReadInChunks(qint64(values.size()), sizeof(Int), [&](qint64 nBegin, qint64 nEnd) {
        std::vector<Int> integers(nEnd - nBegin);
        if (!device.Read(nOffset + nBegin * qint64(sizeof(Int)), std::as_writable_bytes(std::span(integers))))
            return false;
        std::ranges::transform(integers, values.begin() + nBegin, [](Int n) { return Value(n != 0); });
        return true;
    });
}

template <class Value>
SLoadResult ReadBlank(const CReadFile& device, const SPlot3DFile& file, const SPlot3DBlock& block,
                      std::span<Value> values, const SPointRun& run)
{
    Q_ASSERT(IsWithin(run, block) && qint64(values.size()) >= run.nCount);
    const int nSize = file.layout.nIntSize;
    const qint64 nOffset = ArrayOffset(file, block, block.nVariables) + run.nFirst * nSize;
    values = values.first(run.nCount);
    const bool bOk =
        nSize == 4 ? ReadFlags<qint32>(device, nOffset, values) : ReadFlags<qint64>(device, nOffset, values);
    return bOk ? SLoadResult() : ShortRead();
}

template <class Real>
bool ReadArray(const CReadFile& device, const SPlot3DFile& file, const SPlot3DBlock& block, int nArray,
               std::span<Real> values, const SPointRun& run)
{
    Q_ASSERT(file.layout.nRealSize == sizeof(Real));
    Q_ASSERT(IsWithin(run, block) && qint64(values.size()) >= run.nCount);
    const qint64 nOffset = ArrayOffset(file, block, nArray) + run.nFirst * qint64(sizeof(Real));
    return ReadReals(device, nOffset, file.layout.bIsSwapped, values.first(run.nCount));
}

/** What "Z" and "Hole" are where the file has no array for them. */
template <class Real> Real ValueWithoutArray(int nVariable) { return nVariable == 3 ? Real(1) : Real(0); }

} // namespace

SLoadResult CheckGrid(const SPlot3DFile& file, const QString& sFileName, const SBlockRequest& request)
{
    if (file.eKind != KindGrid || file.layout.nIsFormatted)
        return SLoadResult::Failed();
    if ((file.layout.nRealSize == 8) != request.bDouble)
        return SLoadResult::Failed("Invalid grid precision");
    if (!IsBlock(file, request.nBlock)) // the bracket without its partner is what scripts look for
        return SLoadResult::Failed(
            QString("Invalid File Index: %1 of %2)").arg(request.nBlock + 1).arg(file.blocks.size()));
    if (file.blocks[request.nBlock].size != request.size)
        return SLoadResult::Failed(
            QString("Grid Dimensions don't match %1 %2").arg(sFileName, SizeText(request.size)));
    return {};
}

SLoadResult CheckSolution(const SPlot3DFile& file, const SBlockRequest& request)
{
    if (!file.IsDetected() || file.eKind == KindGrid)
        return SLoadResult::Failed();
    if ((file.layout.nRealSize == 8) != request.bDouble)
        return SLoadResult::Failed("Invalid solution precision");
    if (!IsBlock(file, request.nBlock))
        return SLoadResult::Failed(
            QString("Invalid File Index: %1 of %2").arg(request.nBlock + 1).arg(file.blocks.size()));
    if (file.blocks[request.nBlock].size != request.size)
        return SLoadResult::Failed("Warning: Solution Dimensions don't match");
    return {};
}

SLoadResult OpenForLoad(const QString& sFileName, CReadFile& file)
{
    return file.Open(sFileName) ? SLoadResult() : SLoadResult::Failed("Unable to open file");
}

SPointRun PlaneRun(const SPlot3DBlock& block, qint64 nFirstK, qint64 nCountK)
{
    const qint64 nPlane = block.size.i * block.size.j;
    return {nFirstK * nPlane, nCountK * nPlane};
}

SPointRun WholeRun(const SPlot3DBlock& block) { return {0, block.PointCount()}; }

template <class Real>
SLoadResult ReadGridBlock(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock,
                          const std::array<std::span<Real>, 3>& xyz, const SPointRun& run)
{
    const SPlot3DBlock& block = file.blocks.at(nBlock);
    for (int nAxis = 0; nAxis < block.nVariables; ++nAxis)
        if (!ReadArray(device, file, block, nAxis, xyz[nAxis], run))
            return ShortRead();
    return {};
}

template <class Real>
SLoadResult ReadVariable(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, int nVariable,
                         std::span<Real> values, const SPointRun& run)
{
    const int nCount = VariableCount(file, nBlock);
    const bool bWithoutArray = file.eKind == KindXyz && nVariable == 3;
    if (nVariable < 0 || (nVariable >= nCount && !bWithoutArray))
        return SLoadResult::Failed(
            QString("Invalid Solution Index: %1 of %2").arg(nVariable + 1).arg(nCount));
    const SPlot3DBlock& block = file.blocks.at(nBlock);
    if (IsIntegerVariable(file, nVariable))
        return ReadBlank(device, file, block, values, run);
    if (nVariable >= block.nVariables) {
        std::ranges::fill(values.first(run.nCount), ValueWithoutArray<Real>(nVariable));
        return {};
    }
    return ReadArray(device, file, block, nVariable, values, run) ? SLoadResult() : ShortRead();
}

SLoadResult ReadHoles(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock,
                      std::span<qint32> values, const SPointRun& run)
{
    Q_ASSERT(file.layout.bHasBlank);
    return ReadBlank(device, file, file.blocks.at(nBlock), values, run);
}

std::optional<std::array<double, Q_HEADER_REALS>> ReadQHeader(const CReadFile& device,
                                                              const SPlot3DFile& file, qint64 nBlock)
{
    if (file.eKind != KindQ || !IsBlock(file, nBlock))
        return {};
    const qint64 nOffset = QHeaderOffset(file.layout, file.blocks[nBlock]);
    std::array<double, Q_HEADER_REALS> header = {};
    if (file.layout.nRealSize == 8)
        return ReadReals<double>(device, nOffset, file.layout.bIsSwapped, header) ? std::optional(header)
                                                                                  : std::nullopt;
    std::array<float, Q_HEADER_REALS> singles = {};
    if (!ReadReals<float>(device, nOffset, file.layout.bIsSwapped, singles))
        return {};
    std::ranges::copy(singles, header.begin());
    return header;
}

template SLoadResult ReadGridBlock(const CReadFile&, const SPlot3DFile&, qint64,
                                   const std::array<std::span<float>, 3>&, const SPointRun&);
template SLoadResult ReadGridBlock(const CReadFile&, const SPlot3DFile&, qint64,
                                   const std::array<std::span<double>, 3>&, const SPointRun&);
template SLoadResult ReadVariable(const CReadFile&, const SPlot3DFile&, qint64, int, std::span<float>,
                                  const SPointRun&);
template SLoadResult ReadVariable(const CReadFile&, const SPlot3DFile&, qint64, int, std::span<double>,
                                  const SPointRun&);
