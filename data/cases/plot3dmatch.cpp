#include "data/cases/plot3dmatch.h"

#include "data/cases/plot3dcase.h"
#include "data/io/gridio.h"
#include "data/io/plot3dprobe.h"
#include "data/io/solutionio.h"

#include <numeric>

namespace {

/** Wants a file of fields that has the chosen blocks of the grid; no block chosen means all. */
FileTest HasBlocksFor(const SPlot3DFile& grid, const QVector<qint64>& chosen)
{
    QVector<qint64> blocks = chosen;
    if (blocks.isEmpty()) {
        blocks.resize(grid.blocks.size());
        std::iota(blocks.begin(), blocks.end(), 0);
    }
    return [gridBlocks = BlockDimensions(grid), blocks](const SPlot3DFile& file) {
        return !PlacesOfBlocks(BlockDimensions(file), gridBlocks, blocks).isEmpty();
    };
}

/** Detects the solutions as what goes with a grid. False if one of them fits in no layout. */
bool DetectPartners(const SPlot3DCaseFiles& files, SMatchedFiles& matched)
{
    const FileTest fits = HasBlocksFor(matched.grid, files.blockIndices);
    bool bAllFit = true;
    const auto detect = [&](const QString& sFileName) {
        const SPlot3DFile first = CSolutionIO().Detect(sFileName);
        if (!first.IsDetected() || fits(first))
            return first;
        const SPlot3DFile later = DetectPlot3DSolution(sFileName, fits);
        bAllFit &= later.IsDetected();
        return later.IsDetected() ? later : first;
    };
    if (!files.q.sFileName.isEmpty())
        matched.q = detect(files.q.sFileName);
    matched.functions.clear();
    for (const SPlot3DCaseFiles::SFunctionFile& function : files.functions)
        matched.functions.append(detect(function.series.sFileName));
    return bAllFit;
}

} // namespace

SMatchedFiles DetectCaseFiles(const SPlot3DCaseFiles& files)
{
    SMatchedFiles first;
    first.grid = CGridIO().Detect(files.grid.sFileName);
    if (!first.grid.IsDetected() || DetectPartners(files, first))
        return first;
    SMatchedFiles later;
    later.grid = DetectPlot3DGrid(files.grid.sFileName, [&](const SPlot3DFile& grid) {
        later.grid = grid;
        return DetectPartners(files, later);
    });
    return later.grid.IsDetected() ? later : first;
}

QVector<qint64> PlacesOfBlocks(const QVector<IVector3D>& fieldBlocks, const QVector<IVector3D>& gridBlocks,
                               const QVector<qint64>& chosen)
{
    const bool bSamePlaces = fieldBlocks.size() == gridBlocks.size();
    if (!bSamePlaces && fieldBlocks.size() != chosen.size())
        return {};
    QVector<qint64> places;
    places.reserve(chosen.size());
    for (int n = 0; n < chosen.size(); ++n) {
        const qint64 nPlace = bSamePlaces ? chosen[n] : n;
        if (fieldBlocks.value(int(nPlace)) != gridBlocks.value(int(chosen[n])))
            return {};
        places.append(nPlace);
    }
    return places;
}
