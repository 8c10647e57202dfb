#pragma once

#include "tests/support/ownmodules.h"
#include "tests/support/testsimulation.h"

#include <gtest/gtest.h>

/** A test with modules of its own and simulations in the manager; it leaves the manager empty. */
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

    const COwnModules m_modules;
    CSimulationManager& m_manager = CSimulationManager::Instance();
};
