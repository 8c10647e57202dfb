#pragma once

#include "data/io/plot3dfile.h"
#include "data/io/readfile.h"

#include <functional>

// A Plot3D file has no header that names its layout. It is found by trying: a layout fits if the sizes that
// it gives the blocks add up to the size of the file. The first that fits in the order of the codes wins.
// Only headers are read, except of text, which is read once to its end. May be called from any thread.

/** How well a layout has to fit. */
enum Fit_e {
    FitExact, ///< to the last byte
    /**
     * Up to MAX_PADDING bytes may follow, all of them zero (some solvers write whole sectors). In Fortran
     * forms the markers round each block's records must then be right too. Text is never tried.
     */
    FitPadded
};

inline constexpr qint64 MAX_PADDING = 4096; // [bytes]

/**
 * Tries the grid codes 2 to 41. Readers of other formats (42, 45, 46) come between the two fits: a file that
 * anything fits exactly is never taken as a padded one.
 *
 * @return not detected (code 0) if no code fits
 */
SPlot3DFile ProbeGrid(const CReadFile& file, Fit_e eFit);

/** The same for the solution codes 49 to 112, in the order of SolutionFormats. */
SPlot3DFile ProbeSolution(const CReadFile& file, Fit_e eFit);

/** Whether a layout that fits by size is the one that is sought, by its blocks. */
using FileTest = std::function<bool(const SPlot3DFile& file)>;

/**
 * Opens the file and tries all codes exactly, then padded. Not detected if it can't be opened.
 *
 * @param isWanted  a layout that it refuses is passed over; without it the first that fits wins
 */
SPlot3DFile DetectPlot3DGrid(const QString& sFileName, const FileTest& isWanted = {});
SPlot3DFile DetectPlot3DSolution(const QString& sFileName, const FileTest& isWanted = {});

/** Wants kind and blocks of a file that was detected before; anything if it wasn't. */
FileTest HasBlocksOf(const SPlot3DFile& like);

/**
 * Opens the file and reads its blocks in the code and layout of another one. Not detected if it doesn't fit
 * them, if it is text, or if it can't be opened.
 */
SPlot3DFile DetectPlot3DLike(const QString& sFileName, const SPlot3DFile& like);
