// A simulation read from foreign bytes: a case file or an undo state that is damaged.
#include "tests/support/testsimulation.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    if (nSize == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(pData) + 1, int(nSize) - 1);
    CTestSimulation simulation;
    simulation.Make(1, 7);
    if (pData[0] & 1) {
        simulation.SetIdOffset(pData[0] & 2 ? 7 : 0);
        simulation.SetAppending(pData[0] & 4);
    }
    const bool bRead = pData[0] & 8 ? simulation.RestoreState(bytes) : simulation.FromBytes(bytes, 1.0);
    for (CItem* const pItem : simulation.GetItems()) {
        pItem->GetChildIds(-1, true);
        pItem->GetSimilarKey();
    }
    if (!bRead)
        return 0;
    // What was read is a case: its bytes read back to the same case.
    const QByteArray stored = simulation.ToBytes();
    CTestSimulation again;
    if (!again.FromBytes(stored, 1.0) || again.ToBytes() != stored)
        std::abort();
    simulation.DeleteItems(-1);
    return 0;
}
