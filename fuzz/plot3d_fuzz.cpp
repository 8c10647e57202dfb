// Whatever the bytes, detecting a grid or a solution must end without harm, and what is detected must be
// consistent with the file: every array of every block can be read, however the blocks are cut.
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/kernels/range.h"

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/** A file in memory that can be opened by a name. */
class CMemoryFile
{
public:
    void Store(const uint8_t* pData, size_t nSize)
    {
        if (::ftruncate(m_nHandle, 0) != 0 || ::pwrite(m_nHandle, pData, nSize, 0) != ssize_t(nSize))
            std::abort();
    }
    void Resize(qint64 nSize)
    {
        if (::ftruncate(m_nHandle, nSize) != 0)
            std::abort();
    }
    QString Name() const { return QString("/proc/self/fd/%1").arg(m_nHandle); }

private:
    const int m_nHandle = ::memfd_create("input", 0);
};

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

template <class Real>
bool ReadGrid(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, const SPointRun& run)
{
    std::array<std::vector<Real>, 3> xyz;
    for (auto& axis : xyz)
        axis.resize(run.nCount);
    const bool bOk = ReadGridBlock<Real>(device, file, nBlock, {xyz[0], xyz[1], xyz[2]}, run).IsOk();
    FindRange<Real>(xyz[0]);
    return bOk;
}

template <class Real>
bool ReadFields(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, const SPointRun& run)
{
    bool bOk = true;
    std::vector<Real> values(run.nCount);
    for (int n = 0; n < VariableCount(file, nBlock); ++n)
        bOk = ReadVariable<Real>(device, file, nBlock, n, values, run).IsOk() && bOk;
    return bOk;
}

template <class Real>
bool ReadBlock(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, const SPointRun& run)
{
    return file.eKind == KindGrid ? ReadGrid<Real>(device, file, nBlock, run)
                                  : ReadFields<Real>(device, file, nBlock, run);
}

/** True if everything could be read. */
bool ReadAll(const CReadFile& device, const SPlot3DFile& file)
{
    bool bOk = true;
    for (qint64 n = 0; n < file.blocks.size(); ++n) {
        const SPlot3DBlock& block = file.blocks[n];
        for (const SPointRun& run : {WholeRun(block), PlaneRun(block, block.size.k - 1, 1)})
            bOk = (file.layout.nRealSize == 8 ? ReadBlock<double>(device, file, n, run)
                                              : ReadBlock<float>(device, file, n, run)) &&
                  bOk;
        bOk = ReadQHeader(device, file, n).has_value() == (file.eKind == KindQ) && bOk;
    }
    return bOk;
}

void Check(CMemoryFile& input, qint64 nSize, const SPlot3DFile& file)
{
    if (!file.IsDetected() || file.layout.nIsFormatted)
        return;
    const SPlot3DBlock& last = file.blocks.last();
    const qint64 nEnd = last.nOffset + BlockSize(file.layout, file.eKind, last);
    Require(nEnd <= nSize && nSize - nEnd <= MAX_PADDING);
    CReadFile device;
    Require(device.Open(input.Name()) && ReadAll(device, file));
    input.Resize(ArrayOffset(file, last, last.nVariables) - 1); // loses a real while it is open
    Require(!ReadAll(device, file));
    input.Resize(nSize);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    static CMemoryFile s_input;
    s_input.Store(pData, nSize);
    const SPlot3DFile grid = DetectPlot3DGrid(s_input.Name());
    const SPlot3DFile solution = DetectPlot3DSolution(s_input.Name());
    Check(s_input, qint64(nSize), grid);
    Check(s_input, qint64(nSize), solution);
    return 0;
}
