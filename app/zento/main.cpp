#include "frame/moduleregistry.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "window/startup/startup.h"

int main(int argc, char** argv)
{
    CModuleRegistry::Instance().SetFactory(CPlot3DModule::PLOT3D_ID,
                                           [] { return std::make_unique<CPlot3DModule>(); });
    return RunApplication(argc, argv);
}
