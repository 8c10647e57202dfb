#include "data/variables/ifieldranges.h"

#include <atomic>

namespace {

class CNoFields : public IFieldRanges
{
public:
    std::optional<SValueRange> ComputeRange(qint64, qint64, qint64, double) const override
    {
        return std::nullopt;
    }
    bool HasFields(qint64, qint64) const override { return false; }
    qint64 CountRestarts() const override { return 0; }
};

const CNoFields s_noFields;
std::atomic<const IFieldRanges*> s_pInstalled = nullptr; // by a manager, on whatever thread first asks for it

} // namespace

void IFieldRanges::Install(const IFieldRanges* pRanges) { s_pInstalled = pRanges; }

const IFieldRanges& IFieldRanges::Installed()
{
    const IFieldRanges* const pInstalled = s_pInstalled;
    return pInstalled ? *pInstalled : s_noFields;
}
