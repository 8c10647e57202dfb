#include "modules/plot3d/fieldview/fieldviewlook.h"

#include "modules/plot3d/fieldview/fieldviewvalues.h"
#include "modules/plot3d/fieldview/fieldviewvariables.h"

namespace {

constexpr const char* COLORMAPS[] = {"RGB LINEAR", "ZEBRA", "NASA1",  "NASA2",
                                     "Inferno",    "Magma", "Plasma", "Viridis"};

/** By its name, or by its place in the list, from 1. */
QString ColormapOf(const QString& sValue)
{
    for (const char* const sName : COLORMAPS)
        if (sValue.compare(sName, Qt::CaseInsensitive) == 0)
            return sName;
    const int nPlace = sValue.toInt();
    return nPlace >= 1 && nPlace <= int(std::size(COLORMAPS)) ? COLORMAPS[nPlace - 1] : QString();
}

bool TakeColormap(SFieldViewColors& colors, const QString& sValue)
{
    colors.sColormap = ColormapOf(UnquotedFieldView(sValue));
    return !colors.sColormap.isEmpty();
}

template <auto pMember> bool TakeVariable(SFieldViewLook& look, const QString& sValue)
{
    look.*pMember = TranslateFieldViewVariable(UnquotedFieldView(sValue));
    return true;
}

/** The largest component is that of all three. */
bool TakeVectorRange(SFieldViewLook& look, const QString& sValue)
{
    std::optional<SValueRange> range;
    if (TakeFieldView(sValue, range))
        look.dLargestComponent =
            std::max({look.dLargestComponent, std::abs(range->dMin), std::abs(range->dMax)});
    return range.has_value();
}

/** Counts from 1; the first is none. */
bool TakeLegend(SFieldViewLook& look, const QString& sValue)
{
    constexpr int NO_LEGEND = 1;
    int nType = 0;
    const bool bTaken = TakeFieldView(sValue, nType);
    look.bLegend = nType > NO_LEGEND;
    return bTaken;
}

template <auto pMember> constexpr auto Plain = &TakeFieldViewMember<SFieldViewLook, pMember>;
template <auto pMember> constexpr auto OfColors = &TakeFieldViewMember<SFieldViewColors, pMember>;

constexpr SFieldViewRow<SFieldViewColors> s_colors[] = {
    {"color_map_type", TakeColormap},
    {"color_invert", OfColors<&SFieldViewColors::bInverted>},
    {"contour_filled", OfColors<&SFieldViewColors::bFilled>},
    {"number_of_contours", OfColors<&SFieldViewColors::nContours>},
};

constexpr SFieldViewRow<SFieldViewLook> s_look[] = {
    {"visibility", Plain<&SFieldViewLook::bVisible>},
    {"visible_flag", Plain<&SFieldViewLook::bVisible>},
    {"display_type", Plain<&SFieldViewLook::nDisplayType>},
    {"color", Plain<&SFieldViewLook::nColor>},
    {"line_thickness", Plain<&SFieldViewLook::dLineThickness>},
    {"transparency", Plain<&SFieldViewLook::dTransparency>},
    {"show_mesh", Plain<&SFieldViewLook::bMesh>},
    {"show_mesh_flag", Plain<&SFieldViewLook::bMesh>},
    {"thresh_switch", Plain<&SFieldViewLook::bThreshold>},
    {"thresh_flag", Plain<&SFieldViewLook::bThreshold>},
    {"scalar_funct", TakeVariable<&SFieldViewLook::sScalar>},
    {"scalar_fn", TakeVariable<&SFieldViewLook::sScalar>},
    {"vector_funct", TakeVariable<&SFieldViewLook::sVector>},
    {"vector_fn", TakeVariable<&SFieldViewLook::sVector>},
    {"thresh_funct", TakeVariable<&SFieldViewLook::sThreshold>},
    {"thresh_fn", TakeVariable<&SFieldViewLook::sThreshold>},
    {"scalar_min_max", Plain<&SFieldViewLook::scalarRange>},
    {"scalar_minmax", Plain<&SFieldViewLook::scalarRange>},
    {"local_scalar_min_max", Plain<&SFieldViewLook::localRange>},
    {"use_local_scalar_minmax", Plain<&SFieldViewLook::bUseLocalRange>},
    {"thresh_min_max", Plain<&SFieldViewLook::thresholdRange>},
    {"thresh_minmax", Plain<&SFieldViewLook::thresholdRange>},
    {"vector_skip_value", Plain<&SFieldViewLook::nVectorSkip>},
    {"vector_skip", Plain<&SFieldViewLook::nVectorSkip>},
    {"vector_len_scale", Plain<&SFieldViewLook::dVectorLength>},
    {"vec_length_scale", Plain<&SFieldViewLook::dVectorLength>},
    {"vector_head_scale", Plain<&SFieldViewLook::dVectorHead>},
    {"vec_head_scale", Plain<&SFieldViewLook::dVectorHead>},
    {"vector_u_min_max", TakeVectorRange},
    {"vector_v_min_max", TakeVectorRange},
    {"vector_w_min_max", TakeVectorRange},
    {"legend_type", TakeLegend},
    {"legend_decimal_places", Plain<&SFieldViewLook::nLegendDigits>},
    {"spectrum_num_labels", Plain<&SFieldViewLook::nLegendLabels>},
};

} // namespace

bool TakeFieldViewColors(SFieldViewColors& colors, const QString& sKey, const QString& sValue)
{
    return TakeFieldViewRow(s_colors, colors, sKey, sValue);
}

bool TakeFieldViewLook(SFieldViewLook& look, const QString& sKey, const QString& sValue)
{
    return TakeFieldViewRow(s_look, look, sKey, sValue) || TakeFieldViewColors(look.colors, sKey, sValue);
}
