#include "data/io/plot3dformat.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/** What varies within a group of codes, in the order of the codes. */
struct SVariant
{
    bool bDouble;
    bool bFortran;
    bool bMultiBlock;
};

constexpr SVariant s_gridVariants[] = {
    {true, true, true},  {true, true, false},  {true, false, true},  {true, false, false},
    {false, true, true}, {false, true, false}, {false, false, true}, {false, false, false},
};
constexpr SVariant s_textVariants[] = {
    {true, false, true}, {true, false, false}, {false, false, true}, {false, false, false}};
constexpr SVariant s_doubleVariants[] = {
    {true, true, true}, {true, true, false}, {true, false, true}, {true, false, false}};
constexpr SVariant s_singleVariants[] = {
    {false, true, true}, {false, true, false}, {false, false, true}, {false, false, false}};

/** Codes that follow each other and hold the same. */
struct SGroup
{
    int nFirstCode;
    FileKind_e eKind;
    bool b3D;
    bool bBlank;
    bool bFormatted;
    std::span<const SVariant> variants;
};

constexpr SGroup s_gridGroups[] = {
    {2, KindGrid, true, false, false, s_gridVariants},   {10, KindGrid, true, false, true, s_textVariants},
    {14, KindGrid, false, false, false, s_gridVariants}, {22, KindGrid, false, false, true, s_textVariants},
    {26, KindGrid, true, true, false, s_gridVariants},   {34, KindGrid, false, true, false, s_gridVariants},
};
constexpr SGroup s_solutionGroups[] = {
    {49, KindQ, true, false, false, s_doubleVariants},
    {53, KindFunction, true, false, false, s_doubleVariants},
    {57, KindXyzb, true, true, false, s_doubleVariants},
    {61, KindXyz, true, false, false, s_doubleVariants},
    {65, KindQ, true, false, false, s_singleVariants},
    {69, KindFunction, true, false, false, s_singleVariants},
    {73, KindXyzb, true, true, false, s_singleVariants},
    {77, KindXyz, true, false, false, s_singleVariants},
    {81, KindQ, false, false, false, s_doubleVariants},
    {85, KindFunction, false, false, false, s_doubleVariants},
    {89, KindXyzb, false, true, false, s_doubleVariants},
    {93, KindXyz, false, false, false, s_doubleVariants},
    {97, KindQ, false, false, false, s_singleVariants},
    {101, KindFunction, false, false, false, s_singleVariants},
    {105, KindXyzb, false, true, false, s_singleVariants},
    {109, KindXyz, false, false, false, s_singleVariants},
};

constexpr size_t GRID_CODES = 40;
constexpr size_t SOLUTION_CODES = 64;
constexpr int LATE_CODES[] = {81, 85, 89, 93}; // see SolutionFormats

constexpr SPlot3DFormat MakeFormat(const SGroup& group, size_t nVariant)
{
    const SVariant& variant = group.variants[nVariant];
    return {group.nFirstCode + int(nVariant),
            group.eKind,
            group.bFormatted,
            variant.bDouble,
            variant.bFortran,
            variant.bMultiBlock,
            group.b3D,
            group.bBlank};
}

template <size_t COUNT> constexpr std::array<SPlot3DFormat, COUNT> Expand(std::span<const SGroup> groups)
{
    std::array<SPlot3DFormat, COUNT> formats;
    size_t nNext = 0;
    for (const SGroup& group : groups)
        for (size_t n = 0; n < group.variants.size(); ++n)
            formats[nNext++] = MakeFormat(group, n);
    return formats;
}

constexpr bool IsLate(const SPlot3DFormat& format)
{
    return std::ranges::find(LATE_CODES, format.nCode) != std::end(LATE_CODES);
}

/** The same codes in the order in which files are tried. */
constexpr std::array<SPlot3DFormat, SOLUTION_CODES> ExpandSolutions()
{
    const auto ascending = Expand<SOLUTION_CODES>(s_solutionGroups);
    std::array<SPlot3DFormat, SOLUTION_CODES> ordered;
    size_t nNext = 0;
    for (const bool bLate : {false, true})
        for (const SPlot3DFormat& format : ascending)
            if (IsLate(format) == bLate)
                ordered[nNext++] = format;
    return ordered;
}

constexpr auto s_gridFormats = Expand<GRID_CODES>(s_gridGroups);
constexpr auto s_solutionFormats = ExpandSolutions();

} // namespace

SPlot3DFormat FindFormat(int nCode)
{
    for (const std::span<const SPlot3DFormat> formats : {GridFormats(), SolutionFormats()}) {
        const auto found = std::ranges::find(formats, nCode, &SPlot3DFormat::nCode);
        if (found != formats.end())
            return *found;
    }
    return {};
}

std::span<const SPlot3DFormat> GridFormats() { return s_gridFormats; }

std::span<const SPlot3DFormat> SolutionFormats() { return s_solutionFormats; }

bool IsDoublePrecisionFormat(int nCode) { return nCode == CODE_CGNS_STRUCTURED || FindFormat(nCode).bDouble; }

bool IsFortranFormat(int nCode) { return FindFormat(nCode).bFortran; }

bool IsMultiBlockFormat(int nCode) { return FindFormat(nCode).bMultiBlock; }

bool Is3DFormat(int nCode) { return FindFormat(nCode).b3D; }

bool HasBlankFormat(int nCode) { return FindFormat(nCode).bBlank; }

bool IsPlot3DFormat(int nCode) { return FindFormat(nCode).eKind != KindNone; }

SFileLayout LayoutOfCode(int nCode)
{
    const SPlot3DFormat format = FindFormat(nCode);
    SFileLayout layout;
    layout.bIsValid = true;
    layout.nIsFormatted = format.bFormatted || nCode == CODE_STAR_CD;
    layout.nRealSize = IsDoublePrecisionFormat(nCode) ? 8 : 4;
    layout.nMarkerSize = format.bFortran ? 4 : 0;
    layout.bIsMultiBlock = format.bMultiBlock;
    layout.bIs3D = format.b3D;
    layout.bHasBlank = format.bBlank;
    return layout;
}
