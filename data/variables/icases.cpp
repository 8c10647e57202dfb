#include "data/variables/icases.h"

#include "frame/novalue.h"

#include <utility>

namespace {

class CNoCases : public ICases
{
public:
    double GetTime(qint64, qint64) const override { return STEADY_TIME; }
    QVector<qint64> GetBlockIds(qint64) const override { return {}; }
    QByteArray GetKey(qint64) const override { return {}; }
    qint64 TranslateItem(qint64, qint64, qint64) const override { return NO_ID; }
};

ICases* s_pCases = nullptr;

} // namespace

ICases* ICases::Install(ICases* pCases) { return std::exchange(s_pCases, pCases); }

const ICases& ICases::Installed()
{
    static const CNoCases noCases;
    return s_pCases ? *s_pCases : static_cast<const ICases&>(noCases);
}
