#pragma once

#include "data/variables/icases.h"
#include "frame/novalue.h"

/** Cases as views and items would tell of them, while it lives. Items of equal number have the same grid. */
class CTestCases : public ICases
{
public:
    CTestCases() : m_pFormer(Install(this)) {}
    ~CTestCases() override { Install(m_pFormer); }
    double GetTime(qint64, qint64) const override { return STEADY_TIME; }
    QVector<qint64> GetBlockIds(qint64) const override { return {1, 2}; }
    QByteArray GetKey(qint64) const override { return "key"; }
    qint64 TranslateItem(qint64, qint64 nItemId, qint64 nOther) const override
    {
        return nOther == m_nKnown ? nItemId : NO_ID;
    }

    qint64 m_nKnown = 2; ///< the simulation in which items are found

private:
    ICases* m_pFormer;
};
