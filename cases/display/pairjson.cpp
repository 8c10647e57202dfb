#include "cases/display/pairjson.h"

#include "frame/packs/jsoninteger.h"

namespace {

QString Member(const char* sStart, int nAxis) { return sStart + QString(QChar("XYZ"[nAxis])); }

} // namespace

QJsonObject MirrorToJson(const SMirrorSetting& mirror)
{
    QJsonObject json;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        json[Member("mirror", nAxis)] = mirror.bActive[nAxis];
        json[Member("offset", nAxis)] = mirror.dOffset[nAxis];
    }
    return json;
}

SMirrorSetting MirrorFromJson(const QJsonObject& json)
{
    SMirrorSetting mirror;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        mirror.bActive[nAxis] = json[Member("mirror", nAxis)].toBool();
        mirror.dOffset[nAxis] = json[Member("offset", nAxis)].toDouble();
    }
    return mirror;
}

QJsonObject SectorsToJson(const SSectorSetting& sectors)
{
    QJsonObject json;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        json[Member("periodic", nAxis)] = sectors.bActive[nAxis];
        json[Member("sector", nAxis)] = double(sectors.nCount[nAxis]);
    }
    return json;
}

SSectorSetting SectorsFromJson(const QJsonObject& json)
{
    constexpr qint64 HIGHEST_COUNT = 1'000'000'000; // beyond any that can be shown
    SSectorSetting sectors;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        sectors.bActive[nAxis] = json[Member("periodic", nAxis)].toBool();
        sectors.nCount[nAxis] = ToInteger(json[Member("sector", nAxis)], 1, 1, HIGHEST_COUNT);
    }
    return sectors;
}
