#include "modules/plot3d/fieldview/fieldviewdisplay.h"

#include "cases/display/displayoverrides.h"
#include "cases/display/pairjson.h"
#include "cases/files/storedcamera.h"
#include "modules/plot3d/fieldview/fieldviewdrawable.h"
#include "scene/displaystate.h"
#include "view/mesh/surfaceplane.h"

#include <QJsonArray>
#include <QVector3D>
#include <QtMath>

namespace {

constexpr int MOST_SURFACES = 10'000; // of all blocks together

QJsonArray ToJson(const DVector3D& point) { return {point.x, point.y, point.z}; }

/** A surface, and its drawable, whose open ends the block's own take. */
QJsonObject ToSurface(const SFieldViewRestart& restart, const SFieldViewSurface& surface)
{
    constexpr qint64 END_OF_BLOCK = 1'000'000;
    SSurfacePlane plane;
    plane.nDirection = surface.nDirection;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        plane.constants[nAxis] = surface.current[nAxis];
        plane.start[nAxis] = surface.first[nAxis].value_or(1);
        plane.end[nAxis] = surface.last[nAxis].value_or(END_OF_BLOCK);
    }
    QJsonObject drawable = ToFieldViewDrawable(restart, surface.look);
    Definitions::AddToJson(plane, drawable);
    QJsonObject shown{
        {"hidden", !surface.look.bVisible}, {"selected", false}, {"drawables", QJsonArray{drawable}}};
    Definitions::AddToJson(plane, shown, true);
    return shown;
}

/** Surfaces of the same colours share a legend; others stand beside each other. */
class CLegendRow
{
public:
    void Place(QJsonObject& surface)
    {
        constexpr int FIRST = 50, STEP = 150; // [pixels]
        QJsonObject drawable = surface["drawables"].toArray()[0].toObject();
        QJsonObject legend = drawable[DisplayJson::LEGEND].toObject();
        if (!legend["visible"].toBool())
            return;
        const QJsonArray key{drawable[DisplayKeyOf(&SDisplayState::nScalarVariable)],
                             drawable[DisplayJson::COLORMAP_NAME], drawable[DisplayJson::COLORMAP_RANGE]};
        legend["visible"] = !m_shown.contains(key);
        legend["x"] = FIRST + STEP * m_shown.size();
        if (!m_shown.contains(key))
            m_shown.append(key);
        drawable[DisplayJson::LEGEND] = legend;
        surface["drawables"] = QJsonArray{drawable};
    }

private:
    QJsonArray m_shown;
};

/** By grid. */
QMap<qint64, QJsonArray> ToSurfaces(const SFieldViewRestart& restart)
{
    QMap<qint64, QJsonArray> surfaces;
    CLegendRow legends;
    int nSurfaces = 0;
    for (const SFieldViewSurface& surface : restart.surfaces)
        for (qint64 n = surface.nGrid; n <= surface.nLastGrid && nSurfaces < MOST_SURFACES;
             ++n, ++nSurfaces) {
            QJsonObject shown = ToSurface(restart, surface);
            legends.Place(shown);
            surfaces[n].append(shown);
        }
    return surfaces;
}

QJsonArray HiddenList(const QJsonArray& list);

/** The display of a block, or of an item under it, with nothing of it on show. */
QJsonObject Hidden(QJsonObject display)
{
    display["hidden"] = true;
    display["selected"] = false;
    QJsonArray drawables;
    for (const QJsonValue& value : display["drawables"].toArray()) {
        QJsonObject drawable = value.toObject();
        drawable[DisplayKeyOf(&SDisplayState::bVisible)] = false;
        drawables.append(drawable);
    }
    display["drawables"] = drawables;
    for (const char* const sChildren : {"surfaces", "boundarySurfaces"})
        if (display.contains(sChildren))
            display[sChildren] = HiddenList(display[sChildren].toArray());
    return display;
}

QJsonArray HiddenList(const QJsonArray& list)
{
    QJsonArray hidden;
    for (const QJsonValue& value : list)
        hidden.append(Hidden(value.toObject()));
    return hidden;
}

/** In the place of the first ones; nothing else of the block is on show. */
QJsonObject WithSurfaces(const QJsonObject& shown, const QJsonArray& surfaces)
{
    QJsonObject display = Hidden(shown);
    QJsonArray all = surfaces;
    const QJsonArray former = display["surfaces"].toArray();
    for (int n = surfaces.size(); n < former.size(); ++n)
        all.append(former[n]);
    display["surfaces"] = all;
    return display;
}

/** As there, the surfaces alone are on show. Without any the blocks stay: something has to be seen. */
QJsonArray ToBlocks(const SFieldViewRestart& restart, const QJsonArray& shown)
{
    constexpr const char *NAME = "blockName", *DISPLAY = "disp", *GRID = "Grid%1", *BLOCK = "Block ";
    QMap<qint64, QJsonArray> surfaces = ToSurfaces(restart);
    QJsonArray blocks;
    for (int n = 0; n < shown.size() && !restart.surfaces.isEmpty(); ++n) {
        QJsonObject block = shown[n].toObject();
        const QString sName = block[NAME].toString();
        const qint64 nGrid = sName.startsWith(BLOCK) ? sName.mid(int(qstrlen(BLOCK))).toLongLong() : 0;
        if (nGrid > 0)
            block[NAME] = QString(GRID).arg(nGrid);
        block[DISPLAY] = WithSurfaces(block[DISPLAY].toObject(), surfaces.take(nGrid));
        blocks.append(block);
    }
    const QJsonObject hidden = {
        {"drawables", QJsonArray{QJsonObject{{DisplayKeyOf(&SDisplayState::bVisible), false}}}}};
    for (auto it = surfaces.constBegin(); it != surfaces.constEnd(); ++it)
        blocks.append(
            QJsonObject{{NAME, QString(GRID).arg(it.key())}, {DISPLAY, WithSurfaces(hidden, it.value())}});
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
                                  {"drawables", QJsonArray{ToFieldViewDrawable(restart, plane.look)}}});
    }
    return planes;
}

/** By their places, or where none is told by their points of the grids. */
void PutSeeds(const SFieldViewRake& rake, QJsonObject& streamline)
{
    QJsonArray places, zones, indices;
    for (const DVector3D& seed : rake.seeds)
        places.append(ToJson(seed));
    streamline["seedDrawable"] = QJsonObject{{"xyzList", places}};
    if (!rake.seeds.isEmpty() || rake.gridSeeds.isEmpty())
        return;
    for (const SFieldViewGridSeed& seed : rake.gridSeeds) {
        zones.append(seed.nGrid);
        indices.append(QJsonArray{seed.ijk.i, seed.ijk.j, seed.ijk.k});
    }
    streamline["seedZoneIds"] = zones;
    streamline["seedIJKs"] = indices;
}

QJsonArray ToStreamlines(const SFieldViewRestart& restart)
{
    QJsonArray streamlines;
    for (const SFieldViewRake& rake : restart.rakes) {
        QJsonObject streamline{{"showSeeds", false},
                               {"integratorDirection", rake.eDirection},
                               {"streamlineDrawable", ToFieldViewDrawable(restart, rake.look)}};
        PutSeeds(rake, streamline);
        streamlines.append(streamline);
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

SDisplayDocument ToDisplayDocument(const SFieldViewRestart& named, const QStringList& sVariableList,
                                   const QJsonObject& shown)
{
    SFieldViewRestart restart = named;
    TakeComputedOfAll(restart.surfaces, sVariableList);
    TakeComputedOfAll(restart.planes, sVariableList);
    TakeComputedOfAll(restart.rakes, sVariableList);
    SDisplayDocument document;
    document.display = {{"meshBlocks", ToBlocks(restart, shown["meshBlocks"].toArray())},
                        {"coordinateSurfaces", ToPlanes(restart)},
                        {"streamlines", ToStreamlines(restart)},
                        {"isoSurfaces", QJsonArray()},
                        {"extremePoints", QJsonArray()}};
    document.viewer = ToViewer(restart);
    document.overrides = ToOverrides(restart, document.display);
    return document;
}
