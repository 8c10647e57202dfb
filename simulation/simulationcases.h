#pragma once

#include "data/variables/icases.h"

/** What the data layer asks of cases and views, answered by CSimulationManager. */
class CSimulationCases : public ICases
{
public:
    /** Answers while it lives. */
    CSimulationCases();
    ~CSimulationCases() override;

    double GetTime(qint64 nViewId, qint64 nSimulationId) const override;
    QVector<qint64> GetBlockIds(qint64 nSimulationId) const override;
    QByteArray GetKey(qint64 nSimulationId) const override;
    qint64 TranslateItem(qint64 nSimulationId, qint64 nItemId, qint64 nOtherSimulationId) const override;

private:
    ICases* m_pFormer;
};
