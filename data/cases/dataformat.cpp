#include "data/cases/dataformat.h"

#include "data/cases/plot3dcase.h"
#include "data/io/gridio.h"
#include "data/io/solutionio.h"

#include <algorithm>
#include <cstring>

namespace {

bool IsPlot3D(const QStringList& sFileList)
{
    return std::any_of(sFileList.begin(), sFileList.end(), [](const QString& sFile) {
        if (CGridIO().Detect(sFile).IsDetected())
            return true;
        const FileKind_e eSolution = CSolutionIO().Detect(sFile).eKind;
        return eSolution == KindQ || eSolution == KindFunction;
    });
}

SOpenedCase OpenPlot3D(qint64 nSimulationId, const SDataFiles& files)
{
    const SPlot3DCase opened = RegisterPlot3DCase(
        nSimulationId, {files.sGridFile, files.sSolutionFileList, files.sFunctionFileList});
    return {opened.sError, opened.blocks.size()};
}

constexpr SDataFormat FORMATS[] = {{"Plot3D", IsPlot3D, OpenPlot3D}};

} // namespace

const SDataFormat* FindDataFormat(const QStringList& sFileList)
{
    const auto format = std::find_if(std::begin(FORMATS), std::end(FORMATS),
                                     [&](const SDataFormat& row) { return row.CanRead(sFileList); });
    return format == std::end(FORMATS) ? nullptr : format;
}

const SDataFormat& DataFormatNamed(const char* sName)
{
    return *std::find_if(std::begin(FORMATS), std::end(FORMATS),
                         [&](const SDataFormat& row) { return std::strcmp(row.sName, sName) == 0; });
}
