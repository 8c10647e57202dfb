#include "scene/displaystate.h"

namespace {

using S = SDisplayState;

constexpr unsigned BY_MASK = Stale::VALUES | Stale::THRESHOLDS | Stale::VECTORS | Stale::CONTOURS;

constexpr SDisplayKey KEYS[] = {
    {"visible", &S::bVisible},
    {"forceInvisible", &S::bForceInvisible},
    {"nodeVisible", &S::bNodeVisible},
    {"displayOnNodes", &S::bDisplayOnNodes, Stale::ALL},
    {"drawWireframe", &S::bDrawWireframe},
    {"drawShaded", &S::bDrawShaded},
    {"drawNodes", &S::bDrawNodes},
    {"drawOutlines", &S::bDrawOutlines},
    {"showHoles", &S::bShowHoles, BY_MASK}, // the range of values counts what is shown
    {"drawContours", &S::bDrawContours},
    {"contourCount", &S::nContourCount, Stale::CONTOURS},
    {"geometricColor", &S::bGeometricColor, Stale::VALUES}, // those that don't show aren't built
    {"thresholdEnable", &S::bThresholdEnable},
    {"thresholdRange", &S::thresholdRange},
    {"shadeColor", &S::shadeColor},
    {"wireframeColor", &S::wireframeColor},
    {"lineThickness", &S::dLineThickness},
    {"alphaValue", &S::dAlpha},
    {"vectorPlane", &S::nVectorPlane},
    {"vectorSkip", &S::nVectorSkip},
    {"vectorHeadScale", &S::dVectorHeadScale},
    {"vectorBodyScale", &S::dVectorBodyScale},
    {"colormapBindToLocal", &S::bColormapBindToLocal, Stale::CONTOURS},
    {"displayType", &S::nDisplayType, Stale::ALL},
    {"", &S::bDrawVectors, Stale::NOTHING, FormBytes},
    {"scalarVariable", &S::nScalarVariable, Stale::VALUES | Stale::CONTOURS, FormVariable},
    {"vectorVariable", &S::nVectorVariable, Stale::VECTORS, FormVariable},
    {"thresholdVariable", &S::nThresholdVariable, Stale::THRESHOLDS, FormVariable},
    {"", &S::bPreview, Stale::NOTHING, FormNone},
    {"", &S::bExtended, Stale::NOTHING, FormNone},
};

} // namespace

std::span<const SDisplayKey> DisplayKeys() { return KEYS; }

const SDisplayKey& FindDisplayKey(const DisplayMember& member)
{
    const auto* const pKey = std::find_if(std::begin(KEYS), std::end(KEYS),
                                          [&](const SDisplayKey& key) { return key.member == member; });
    Q_ASSERT(pKey != std::end(KEYS));
    return *pKey;
}
