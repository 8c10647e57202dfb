#pragma once

#include "frame/moduleregistry.h"
#include "tests/support/testmodule.h"
#include "tests/support/testsimulation.h"

/** Opens the files of test simulations, under the name of a module that there is. */
class COpeningModule : public CTestModule
{
public:
    COpeningModule() : CTestModule(1, "Plot3D") {}
    bool CanOpen() const override { return true; }

    /** Makes it, or the class derived from it, the module of all test simulations. */
    template <class Module = COpeningModule> static void Register()
    {
        CModuleRegistry::Instance().SetFactory(1, [] { return std::make_unique<Module>(); });
        CModuleRegistry::Instance().CreateModules();
    }

protected:
    ISimulation* MakeSimulation() const override { return new CTestSimulation(GetId()); }
};
