// The program behind zento-batch render. It stands for itself so that the other commands needn't load what
// draws.
#include "app/batch/batch.h"
#include "app/batch/render/render.h"
#include "frame/moduleregistry.h"
#include "modules/plot3d/ui/plot3dmodule.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
{
    QStringList sArgumentList;
    for (int n = 1; n < argc; ++n)
        sArgumentList << QString::fromLocal8Bit(argv[n]);
    CModuleRegistry::Instance().SetFactory(CPlot3DModule::PLOT3D_ID,
                                           [] { return std::make_unique<CPlot3DModule>(); });
    try {
        return RunRenderHere(sArgumentList);
    } catch (const std::exception& exception) {
        return BatchError(BatchFailed, exception.what());
    }
}
