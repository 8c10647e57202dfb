#pragma once

#include "simulation/displaytransforms.h"

#include <QJsonObject>

// Mirror and sectors of a pair as objects: "mirrorX" ... "offsetZ", and "periodicX" ... "sectorZ". What isn't
// named has its default.

QJsonObject MirrorToJson(const SMirrorSetting& mirror);
SMirrorSetting MirrorFromJson(const QJsonObject& json);
QJsonObject SectorsToJson(const SSectorSetting& sectors);
SSectorSetting SectorsFromJson(const QJsonObject& json);
