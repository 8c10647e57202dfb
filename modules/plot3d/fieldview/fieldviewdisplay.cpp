#include "modules/plot3d/fieldview/fieldviewdisplay.h"

#include "modules/base/displayoverrides.h"
#include "modules/base/pairjson.h"
#include "modules/base/storedcamera.h"
#include "scene/displaytype.h"

#include <QJsonArray>
#include <QVector3D>
#include <QtMath>

namespace {

constexpr int MOST_SURFACES = 10'000; // of all blocks together

QJsonArray ToJson(const DVector3D& point) { return {point.x, point.y, point.z}; }
QJsonArray ToJson(const SValueRange& range) { return {range.dMin, range.dMax}; }

DisplayType_e TypeOf(const SFieldViewLook& look)
{
    switch (look.nDisplayType) {
    case 1:
        return DisplayWireframe;
    case 2:
    case 3:
        return look.bMesh ? DisplayShadedWireframe : DisplayShaded;
    case 4:
        return look.sScalar.isEmpty() ? DisplayShaded : DisplayContour;
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

void PutColors(const SFieldViewRestart& restart, const SFieldViewLook& look, QJsonObject& drawable)
{
    const QColor color = restart.colors.value(look.nColor > 0 ? look.nColor : restart.nGeometryColor);
    if (color.isValid())
        for (const char* const sKey : {"shadeColor", "wireframeColor"})
            drawable[sKey] = color.name(QColor::HexArgb);
    drawable["geometricColor"] = !UsesScalar(look);
    drawable["scalarVariable"] = look.sScalar;
    drawable["colormapName"] = look.sColormap.isEmpty() ? restart.sColormap : look.sColormap;
    const std::optional<SValueRange>& range = look.bUseLocalRange ? look.localRange : look.scalarRange;
    if (range)
        drawable["colormapRange"] = ToJson(*range);
}

QJsonObject ToDrawable(const SFieldViewRestart& restart, const SFieldViewLook& look)
{
    const DisplayType_e eType = TypeOf(look);
    const bool bGridLines = eType == DisplayWireframe || eType == DisplayShadedWireframe;
    QJsonObject drawable{{"visible", look.bVisible},
                         {"displayType", eType},
                         {"drawWireframe", bGridLines},
                         {"drawShaded", eType == DisplayShaded || eType == DisplayShadedWireframe},
                         {"drawContours", eType == DisplayContour},
                         {"drawNodes", false},
                         {"nodeVisible", false},
                         {"drawOutlines", !bGridLines}, // they go ahead of grid lines
                         {"displayOnNodes", true},
                         {"lineThickness", std::clamp(look.dLineThickness, 1.0, 20.0)},
                         {"alphaValue", 1.0 - std::clamp(look.dTransparency, 0.0, 1.0)},
                         {"vectorVariable", look.sVector},
                         {"vectorSkip", std::max(look.nVectorSkip, 0)},
                         {"vectorBodyScale", look.dVectorLength},
                         {"vectorHeadScale", look.dVectorHead},
                         {"thresholdEnable", look.bThreshold && !look.sThreshold.isEmpty()},
                         {"thresholdVariable", look.sThreshold}};
    if (look.nContours > 0)
        drawable["contourCount"] = std::min(look.nContours, 256);
    if (look.thresholdRange)
        drawable["thresholdRange"] = ToJson(*look.thresholdRange);
    PutColors(restart, look, drawable);
    return drawable;
}

/** A surface, and its drawable, whose open ends the block's own take. */
QJsonObject ToSurface(const SFieldViewRestart& restart, const SFieldViewSurface& surface)
{
    constexpr qint64 END_OF_BLOCK = 1'000'000;
    QJsonArray constants, first, last;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        constants.append(surface.current[nAxis]);
        first.append(surface.first[nAxis].value_or(1));
        last.append(surface.last[nAxis].value_or(END_OF_BLOCK));
    }
    QJsonObject drawable = ToDrawable(restart, surface.look);
    drawable["constantDirection"] = surface.nDirection;
    drawable["constantValue"] = constants;
    drawable["ijkMin"] = first;
    drawable["ijkMax"] = last;
    return {{"constantDirection", surface.nDirection},
            {"constantValue", constants},
            {"drawables", QJsonArray{drawable}}};
}

/** The blocks show their surfaces alone, as there. */
QJsonArray ToBlocks(const SFieldViewRestart& restart)
{
    QMap<qint64, QJsonArray> surfaces; // by grid
    int nSurfaces = 0;
    for (const SFieldViewSurface& surface : restart.surfaces)
        for (qint64 n = surface.nGrid; n <= surface.nLastGrid && nSurfaces < MOST_SURFACES; ++n, ++nSurfaces)
            surfaces[n].append(ToSurface(restart, surface));
    const QJsonArray nothing = {QJsonObject{{"visible", false}}};
    QJsonArray blocks;
    for (auto it = surfaces.constBegin(); it != surfaces.constEnd(); ++it)
        blocks.append(QJsonObject{{"blockName", QString("Grid%1").arg(it.key())},
                                  {"disp", QJsonObject{{"drawables", nothing}, {"surfaces", it.value()}}}});
    return blocks;
}

QJsonArray ToPlanes(const SFieldViewRestart& restart)
{
    QJsonArray planes;
    for (const SFieldViewPlane& plane : restart.planes) {
        DVector3D normal;
        normal[plane.nAxis] = 1.0;
        planes.append(QJsonObject{{"selectable", QJsonObject{{"planeNormal", ToJson(normal)},
                                                             {"planeValue", plane.place[plane.nAxis]}}},
                                  {"subjects", QJsonArray()},
                                  {"drawables", QJsonArray{ToDrawable(restart, plane.look)}}});
    }
    return planes;
}

QJsonArray ToStreamlines(const SFieldViewRestart& restart)
{
    QJsonArray streamlines;
    for (const SFieldViewRake& rake : restart.rakes) {
        QJsonArray seeds;
        for (const DVector3D& seed : rake.seeds)
            seeds.append(ToJson(seed));
        streamlines.append(QJsonObject{{"showSeeds", false},
                                       {"seedDrawable", QJsonObject{{"xyzList", seeds}}},
                                       {"streamlineDrawable", ToDrawable(restart, rake.look)}});
    }
    return streamlines;
}

/** There the world is turned, shrunk by the scale, moved and enlarged; here the box that is shown goes the
 * other way. */
QJsonObject ToViewer(const SFieldViewRestart& restart)
{
    if (!restart.bHasView)
        return {};
    SCamera camera;
    camera.view.rotate(float(qRadiansToDegrees(restart.dAngle)), float(restart.axis.x), float(restart.axis.y),
                       float(restart.axis.z));
    const double dSize = restart.dScale / restart.dZoom;
    camera.viewSize = {dSize, dSize};
    camera.viewCenter = {-restart.translation.x * restart.dScale, -restart.translation.y * restart.dScale};
    const QVector3D middle = camera.view.transposed().map(
        QVector3D(float(camera.viewCenter.x()), float(camera.viewCenter.y()), 0.0F));
    camera.rotationPoint = {double(middle.x()), double(middle.y()), double(middle.z())};
    return CameraToJson(camera);
}

QJsonObject ToOverrides(const SFieldViewRestart& restart, const QJsonObject& display)
{
    SMirrorSetting mirror;
    if (restart.nMirrorAxis >= 0)
        mirror.bActive[restart.nMirrorAxis] = true;
    return DisplayOverrides::Build({display, MirrorToJson(mirror), SectorsToJson({})});
}

void TakeComputed(SFieldViewLook& look, const QStringList& sVariableList)
{
    for (QString* const pName : {&look.sScalar, &look.sVector, &look.sThreshold})
        if (const QString sComputed = *pName + "[Q]";
            !sVariableList.contains(*pName) && sVariableList.contains(sComputed))
            *pName = sComputed;
}

template <class Items> void TakeComputedOfAll(Items& items, const QStringList& sVariableList)
{
    for (auto& item : items)
        TakeComputed(item.look, sVariableList);
}

} // namespace

SDisplayDocument ToDisplayDocument(const SFieldViewRestart& named, const QStringList& sVariableList)
{
    SFieldViewRestart restart = named;
    TakeComputedOfAll(restart.surfaces, sVariableList);
    TakeComputedOfAll(restart.planes, sVariableList);
    TakeComputedOfAll(restart.rakes, sVariableList);
    SDisplayDocument document;
    document.display = {{"meshBlocks", ToBlocks(restart)},
                        {"coordinateSurfaces", ToPlanes(restart)},
                        {"streamlines", ToStreamlines(restart)},
                        {"isoSurfaces", QJsonArray()},
                        {"extremePoints", QJsonArray()}};
    document.viewer = ToViewer(restart);
    document.overrides = ToOverrides(restart, document.display);
    return document;
}
