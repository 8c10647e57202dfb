#include "modules/plot3d/fieldview/fieldviewdrawable.h"

#include "scene/displaystate.h"

#include <QJsonArray>

namespace {

using State = SDisplayState;

QJsonArray ToJson(const SValueRange& range) { return {range.dMin, range.dMax}; }

bool IsFilled(const SFieldViewRestart& restart, const SFieldViewLook& look)
{
    return look.colors.bFilled.value_or(restart.colors.bFilled.value_or(false));
}

DisplayType_e TypeOf(const SFieldViewRestart& restart, const SFieldViewLook& look)
{
    switch (look.nDisplayType) {
    case 1:
        return DisplayWireframe;
    case 2:
    case 3:
        return look.bMesh ? DisplayShadedWireframe : DisplayShaded;
    case 4: // between contours of one colour each the scalar is shaded
        return look.sScalar.isEmpty() || IsFilled(restart, look) ? DisplayShaded : DisplayContour;
    case 5:
        return look.sVector.isEmpty() ? DisplayShaded : DisplayVector;
    default:
        return DisplayOutline;
    }
}

bool UsesScalar(const SFieldViewLook& look)
{
    constexpr int BY_SCALAR = 3; // this type and those behind it
    return !look.sScalar.isEmpty() && look.nDisplayType >= BY_SCALAR;
}

/** The map itself can't be turned round: a range from its greatest to its least value does the same. */
QJsonArray RangeOfColors(const SFieldViewRestart& restart, const SFieldViewLook& look, SValueRange range)
{
    if (look.colors.bInverted.value_or(restart.colors.bInverted.value_or(false)))
        std::swap(range.dMin, range.dMax);
    return ToJson(range);
}

void PutColors(const SFieldViewRestart& restart, const SFieldViewLook& look, QJsonObject& drawable)
{
    const QColor color = restart.colorTable.value(look.nColor > 0 ? look.nColor : restart.nGeometryColor);
    if (color.isValid())
        for (const auto member : {&State::shadeColor, &State::wireframeColor})
            drawable[DisplayKeyOf(member)] = color.name(QColor::HexArgb);
    drawable[DisplayKeyOf(&State::bGeometricColor)] = !UsesScalar(look);
    drawable[DisplayKeyOf(&State::nScalarVariable)] = look.sScalar;
    drawable[DisplayJson::COLORMAP_NAME] =
        look.colors.sColormap.isEmpty() ? restart.colors.sColormap : look.colors.sColormap;
    const std::optional<SValueRange>& range = look.bUseLocalRange ? look.localRange : look.scalarRange;
    drawable[DisplayKeyOf(&State::bColormapBindToLocal)] = !range;
    if (range)
        drawable[DisplayJson::COLORMAP_RANGE] = RangeOfColors(restart, look, *range);
    if (const int nContours = look.colors.nContours > 0 ? look.colors.nContours : restart.colors.nContours;
        nContours > 0)
        drawable[DisplayKeyOf(&State::nContourCount)] = std::min(nContours, 256);
}

QJsonObject ToLegend(const SFieldViewLook& look)
{
    QJsonObject legend{{"visible", look.bLegend}, {"subtitle", QJsonObject{{"visible", false}}}};
    if (look.nLegendDigits)
        legend["digits"] = *look.nLegendDigits;
    if (look.nLegendLabels)
        legend["labelCount"] = *look.nLegendLabels;
    return legend;
}

/** There a scale of 1 makes arrows of a size that goes with that of the data; here it is one of the vector
 * alone. As for arrows that are chosen here, the longest is a twentieth of all then. */
double ArrowScale(const SFieldViewRestart& restart, const SFieldViewLook& look)
{
    constexpr double UNIT = 0.001; // of the length that a scale of 1 gives a vector of 1
    constexpr double SHARE = 1.0 / 20.0;
    const bool bKnown = restart.bHasView && look.dLargestComponent > 0.0;
    const double dUsual = bKnown ? restart.dScale * SHARE / (look.dLargestComponent * UNIT) : 1.0;
    return look.dVectorLength * dUsual;
}

} // namespace

QJsonObject ToFieldViewDrawable(const SFieldViewRestart& restart, const SFieldViewLook& look)
{
    const DisplayType_e eType = TypeOf(restart, look);
    const bool bGridLines = eType == DisplayWireframe || eType == DisplayShadedWireframe;
    QJsonObject drawable{
        {DisplayKeyOf(&State::bVisible), look.bVisible},
        {DisplayKeyOf(&State::nDisplayType), eType},
        {DisplayKeyOf(&State::bDrawWireframe), bGridLines},
        {DisplayKeyOf(&State::bDrawShaded), eType == DisplayShaded || eType == DisplayShadedWireframe},
        {DisplayKeyOf(&State::bDrawContours), eType == DisplayContour},
        {DisplayKeyOf(&State::bDrawNodes), false},
        {DisplayKeyOf(&State::bNodeVisible), false},
        {DisplayKeyOf(&State::bDrawOutlines), !bGridLines}, // they go ahead of grid lines
        {DisplayKeyOf(&State::bDisplayOnNodes), true},
        {DisplayKeyOf(&State::dLineThickness), std::clamp(look.dLineThickness, 1.0, 20.0)},
        {DisplayKeyOf(&State::dAlpha), 1.0 - std::clamp(look.dTransparency, 0.0, 1.0)},
        {DisplayKeyOf(&State::nVectorVariable), look.sVector},
        {DisplayKeyOf(&State::nVectorSkip), std::max(look.nVectorSkip, 0)},
        {DisplayKeyOf(&State::dVectorBodyScale), ArrowScale(restart, look)},
        {DisplayKeyOf(&State::dVectorHeadScale), look.dVectorHead},
        {DisplayKeyOf(&State::bThresholdEnable), look.bThreshold && !look.sThreshold.isEmpty()},
        {DisplayKeyOf(&State::nThresholdVariable), look.sThreshold},
        {DisplayJson::LEGEND, ToLegend(look)}};
    if (look.thresholdRange)
        drawable[DisplayKeyOf(&State::thresholdRange)] = ToJson(*look.thresholdRange);
    PutColors(restart, look, drawable);
    return drawable;
}
