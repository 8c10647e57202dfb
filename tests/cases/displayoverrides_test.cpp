#include "cases/display/displayoverrides.h"

#include "cases/display/pairjson.h"
#include "tests/support/print.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {

QJsonObject Json(const char* sText) { return QJsonDocument::fromJson(sText).object(); }

/** A view with something of each kind; streamline 1 has no JSON form. */
SOverridable SomeValues()
{
    SOverridable values;
    values.display = Json(R"({
        "meshBlocks": [
            {"blockName": "Block 1", "disp": {"surfaces": []}},
            {"blockName": "fine.v2", "disp": {"surfaces": [
                {"constantDirection": 2, "constantValue": [1, 1, 3]},
                {"constantDirection": 0, "constantValue": [4, 1, 1]}]}}],
        "coordinateSurfaces": [{"selectable": {"planeNormal": [0, 0, 1], "planeValue": 0.5}}],
        "isoSurfaces": [{"drawables": [{"isoVariable": "P", "isoValue": 1, "scalarVariable": "T"},
                                       {"isoVariable": "P", "isoValue": 1, "scalarVariable": "T"}]}],
        "extremePoints": [{"extremeVariable": "M"}],
        "streamlines": [{"showSeeds": true, "seedDrawable": {"xyzList": [[0, 0, 0]]}, "seedZoneIds": [1],
                         "seedIJKs": [[1, 1, 1]]}, "AAAA"]})");
    SMirrorSetting mirror;
    mirror.bActive[1] = true;
    mirror.dOffset[1] = 2.5;
    values.mirror = MirrorToJson(mirror);
    SSectorSetting sectors;
    sectors.bActive[2] = true;
    sectors.nCount[2] = 8;
    values.sectors = SectorsToJson(sectors);
    return values;
}

} // namespace

TEST(DisplayOverrides, TheTableHoldsAllThatCanBeChangedWithItsValueAndAppliesToNoEffect)
{
    SOverridable values = SomeValues();
    const QJsonObject table = DisplayOverrides::Build(values);
    EXPECT_EQ(table.keys().join(' '),
              "coordinateSurface.0.planeNormal coordinateSurface.0.planeValue extremePoint.0.extremeVariable "
              "isoSurface.0.isoValue isoSurface.0.isoVariable isoSurface.0.scalarVariable mirror.X mirror.Y "
              "mirror.Z mirror.offsetX mirror.offsetY mirror.offsetZ periodicMirror.X periodicMirror.Y "
              "periodicMirror.Z periodicMirror.sectorX periodicMirror.sectorY periodicMirror.sectorZ "
              "streamline.0.seeds streamline.0.showSeeds surface.fine.v2.0.constantDirection "
              "surface.fine.v2.0.constantValue surface.fine.v2.1.constantDirection "
              "surface.fine.v2.1.constantValue");
    EXPECT_EQ(table["mirror.offsetY"].toDouble(), 2.5);
    EXPECT_EQ(table["periodicMirror.sectorZ"].toDouble(), 8.0);
    EXPECT_EQ(DisplayOverrides::Apply(table, values), QStringList());
    EXPECT_EQ(values.display, SomeValues().display);
    EXPECT_EQ(MirrorFromJson(values.mirror), MirrorFromJson(SomeValues().mirror));
    EXPECT_EQ(SectorsFromJson(values.sectors), SectorsFromJson(SomeValues().sectors));
}

TEST(DisplayOverrides, ChangedValuesGoToTheirPlaces)
{
    SOverridable values = SomeValues();
    EXPECT_EQ(DisplayOverrides::Apply(Json(R"({
        "mirror.X": true, "mirror.offsetX": -1, "periodicMirror.sectorX": 4,
        "coordinateSurface.0.planeValue": 7, "isoSurface.0.isoValue": 9, "extremePoint.0.extremeVariable": "T",
        "surface.fine.v2.1.constantDirection": 1, "surface.fine.v2.0.constantValue": [2, 2, 2],
        "streamline.0.seeds": [[1, 2, 3], [4, 5, 6]], "dataFiles.gridFile": 5})"),
                                      values),
              QStringList());
    EXPECT_EQ(values.mirror["mirrorX"], true);
    EXPECT_EQ(values.mirror["offsetX"], -1);
    EXPECT_EQ(values.sectors["sectorX"], 4);
    const QJsonObject& display = values.display;
    EXPECT_EQ(display["coordinateSurfaces"][0]["selectable"]["planeValue"], 7);
    EXPECT_EQ(display["isoSurfaces"][0]["drawables"][1]["isoValue"], 9) << "all drawables of the surface";
    EXPECT_EQ(display["extremePoints"][0]["extremeVariable"], "T");
    const QJsonValue surfaces = display["meshBlocks"][1]["disp"]["surfaces"];
    EXPECT_EQ(surfaces[1]["constantDirection"], 1);
    EXPECT_EQ(surfaces[0]["constantValue"], QJsonArray({2, 2, 2}));
    const QJsonValue streamline = display["streamlines"][0];
    EXPECT_EQ(streamline["seedDrawable"]["xyzList"], QJsonArray({QJsonArray{1, 2, 3}, QJsonArray{4, 5, 6}}));
    EXPECT_TRUE(streamline["seedZoneIds"].isUndefined() && streamline["seedIJKs"].isUndefined())
        << "of the seeds that were";
}

TEST(DisplayOverrides, OlderFilesNameTheirBlocksDifferently)
{
    SOverridable values;
    values.display =
        Json(R"({"blocks": [{"blockName": "B", "disp": {"surfaces": [{"constantDirection": 0}]}}]})");
    EXPECT_TRUE(DisplayOverrides::Apply({{"surface.B.0.constantDirection", 2}}, values).isEmpty());
    EXPECT_EQ(std::as_const(values.display)["blocks"][0]["disp"]["surfaces"][0]["constantDirection"], 2);
    EXPECT_FALSE(values.display.contains("meshBlocks"));
}

struct SErrorCase
{
    const char* sKey;
    const char* sValue; // in an array, as a document can't be a bare value
    const char* sError;
};

class OverrideErrors : public testing::TestWithParam<SErrorCase>
{};

TEST_P(OverrideErrors, AreToldAndDontKeepTheOthersFromTheirPlace)
{
    const SErrorCase& c = GetParam();
    SOverridable values = SomeValues();
    const QJsonValue value = QJsonDocument::fromJson(QByteArray("[") + c.sValue + "]").array().first();
    EXPECT_EQ(DisplayOverrides::Apply({{c.sKey, value}, {"mirror.Z", true}}, values), QStringList(c.sError));
    EXPECT_EQ(values.mirror["mirrorZ"], true);
    EXPECT_EQ(values.display, SomeValues().display);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OverrideErrors,
    testing::Values(
        SErrorCase{"mirror", "1", "Invalid override key: 'mirror'"},
        SErrorCase{".mirror..", "1", "Invalid override key: '.mirror..'"},
        SErrorCase{"surface.Block 1", "1", "Invalid override key: 'surface.Block 1'"},
        SErrorCase{"lights.on", "1", "Unknown override key: 'lights.on'"},
        SErrorCase{"mirror.W", "1", "Unknown mirror field: 'W'"},
        SErrorCase{"periodicMirror.offsetX", "1", "Unknown periodicMirror field: 'offsetX'"},
        SErrorCase{"coordinateSurface.a.planeValue", "1", "Invalid index: 'a'"},
        SErrorCase{"coordinateSurface.1.planeValue", "1", "coordinateSurface index 1 out of range"},
        SErrorCase{"isoSurface.1.isoValue", "1", "isoSurface index 1 out of range"},
        SErrorCase{"extremePoint.-1.extremeVariable", "\"T\"", "extremePoint index -1 out of range"},
        SErrorCase{"streamline.2.seeds", "[]", "streamline index 2 out of range"},
        SErrorCase{"streamline.1.seeds", "[]", "streamline 1 is legacy binary, cannot override"},
        SErrorCase{"surface.Block 9.0.constantDirection", "0", "Block 'Block 9' not found"},
        SErrorCase{"surface.fine.v2.x.constantDirection", "0", "Invalid index: 'x'"},
        SErrorCase{"surface.fine.v2.2.constantDirection", "0",
                   "surface index 2 out of range in block 'fine.v2'"},
        SErrorCase{"surface.fine.v2.0.color", "0", "Unknown field: 'color'"},
        SErrorCase{"isoSurface.0.color", "0", "Unknown field: 'color'"},
        SErrorCase{"mirror.offsetX", "true", "'mirror.offsetX': must be a number"},
        SErrorCase{"mirror.X", "1", "'mirror.X': must be true/false"},
        SErrorCase{"extremePoint.0.extremeVariable", "1",
                   "'extremePoint.0.extremeVariable': must be a string"},
        SErrorCase{"coordinateSurface.0.planeNormal", "[1, 2]",
                   "'coordinateSurface.0.planeNormal': must be [x, y, z]"},
        SErrorCase{"surface.fine.v2.0.constantDirection", "3",
                   "'surface.fine.v2.0.constantDirection': must be a number (0=I, 1=J, 2=K)"},
        SErrorCase{"surface.fine.v2.0.constantValue", "[1, 2, 2.5]",
                   "'surface.fine.v2.0.constantValue': must be [i, j, k]"},
        SErrorCase{"streamline.0.seeds", "[[1, 2, 3], [4, 5]]",
                   "'streamline.0.seeds': must be array of [x, y, z]"}));
