#pragma once

#include "tests/support/testsimulation.h"

#include <gtest/gtest.h>

/** A test with simulations in the manager; it leaves the manager empty. */
class SimulationFixture : public testing::Test
{
protected:
    ~SimulationFixture() override { m_manager.RemoveAllViews(); }

    /** A new simulation in the view, owned by the manager. */
    CTestSimulation* Add(qint64 nViewId = 1)
    {
        auto* const pSimulation = new CTestSimulation;
        m_manager.AddSimulation(pSimulation, nViewId);
        return pSimulation;
    }

    CSimulationManager& m_manager = CSimulationManager::Instance();
};
