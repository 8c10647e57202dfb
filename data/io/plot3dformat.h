#pragma once

#include <QtGlobal>

#include <span>

// What a format code says about a Plot3D file. Codes are small integers: 2 to 41 grids, 49 to 112 solutions,
// 0 unknown. These of other readers appear in the same places: 42 (structured CGNS), 45 (Star-CD),
// 46 (unstructured CGNS).

inline constexpr int CODE_UNKNOWN = 0;
inline constexpr int CODE_CGNS_STRUCTURED = 42;
inline constexpr int CODE_STAR_CD = 45;
inline constexpr int CODE_CGNS_UNSTRUCTURED = 46;

/** What a Plot3D file holds. An xyz or xyzb file is a grid file, read as a file of fields. */
enum FileKind_e : int { KindNone, KindGrid, KindQ, KindFunction, KindXyzb, KindXyz };

/** One row of the table of codes. A code that isn't a Plot3D code has KindNone and nothing set. */
struct SPlot3DFormat
{
    int nCode = CODE_UNKNOWN;
    FileKind_e eKind = KindNone;
    bool bFormatted = false;  ///< text
    bool bDouble = false;     ///< reals of 8 bytes, otherwise 4
    bool bFortran = false;    ///< unformatted sequential records, otherwise raw
    bool bMultiBlock = false; ///< begins with the number of blocks
    bool b3D = false;
    bool bBlank = false; ///< one integer a point behind the coordinates of a block
};

/** The row of a code. */
SPlot3DFormat FindFormat(int nCode);

/** All grid formats, binary and text, in the order in which files are tried. */
std::span<const SPlot3DFormat> GridFormats();

/**
 * All solution formats in the order in which files are tried: ascending, but those that were added later
 * (81, 85, 89, 93: double, two-dimensional, Fortran, multi-block) last, so that they never take a file that
 * another code fits.
 */
std::span<const SPlot3DFormat> SolutionFormats();

/** True for 42 too. */
bool IsDoublePrecisionFormat(int nCode);
bool IsFortranFormat(int nCode);
bool IsMultiBlockFormat(int nCode);
bool Is3DFormat(int nCode);
/** True for grids with IBlank and for xyzb solutions. */
bool HasBlankFormat(int nCode);
/** True for every code of a Plot3D file, grid or solution, text included; false for 42, 45 and 46. */
bool IsPlot3DFormat(int nCode);

inline bool IsQFormat(int nCode) { return FindFormat(nCode).eKind == KindQ; }
inline bool IsFunctionFormat(int nCode) { return FindFormat(nCode).eKind == KindFunction; }
inline bool IsXyzbFormat(int nCode) { return FindFormat(nCode).eKind == KindXyzb; }
inline bool IsXyzFormat(int nCode) { return FindFormat(nCode).eKind == KindXyz; }

/** How the bytes of one file are laid out; 16 bytes, since caches hold one for each file. */
struct SFileLayout
{
    bool bIsValid = false;
    qint32 nIsFormatted = 0; ///< 1 for text
    bool bIsSwapped = false; ///< byte order differs from this machine's
    quint8 nIntSize = 4;     ///< 4 or 8 [bytes]
    quint8 nRealSize = 4;    ///< 4 or 8 [bytes]
    quint8 nMarkerSize = 0;  ///< of a Fortran record: 4 or 8 [bytes], 0 without records
    bool bIsMultiBlock = false;
    bool bIs3D = false;
    bool bHasBlank = false;

    int Dimensions() const { return bIs3D ? 3 : 2; }

    friend bool operator==(const SFileLayout&, const SFileLayout&) = default;
};
static_assert(sizeof(SFileLayout) == 16);

/**
 * The layout that a code alone stands for, where no file has been looked at: this machine's byte order,
 * integers of 4 bytes, markers of 4 bytes in Fortran forms. Text for the text codes and 45. Always valid.
 */
SFileLayout LayoutOfCode(int nCode);
