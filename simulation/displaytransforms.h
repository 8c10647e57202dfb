#pragma once

#include "frame/transform.h"

#include <QVector>

#include <array>

/** Mirror display of a pair of view and simulation, by axis. */
struct SMirrorSetting
{
    std::array<bool, 3> bActive = {};
    std::array<double, 3> dOffset = {}; ///< place of the mirror plane on the axis [m]

    friend bool operator==(const SMirrorSetting&, const SMirrorSetting&) = default;
};

/** Periodic display of a pair, by axis: the case is one of N equal sectors. */
struct SSectorSetting
{
    std::array<bool, 3> bActive = {};
    std::array<qint64, 3> nCount = {1, 1, 1}; ///< N; below 2 adds nothing

    friend bool operator==(const SSectorSetting&, const SSectorSetting&) = default;
};

/** More transforms than these aren't drawn. */
inline constexpr int MAX_DISPLAY_TRANSFORMS = 16384;

/** How many transforms BuildDisplayTransforms would give; as a double, since settings can ask for too many.
 */
double CountDisplayTransforms(const SMirrorSetting& mirror, const SSectorSetting& sectors);

/** What to tell the user of settings that would make so many transforms, more than can be drawn. */
QString TransformLimitText(double dTransforms);

/**
 * The transforms with which every drawable of a pair is drawn, the identity first. Each active mirror axis
 * (X, Y, Z) doubles the list by reflected copies; then each axis with N >= 2 sectors appends, for k from 1
 * to N - 1, the copies of all before that axis, turned by k times 2 pi / N about the axis through the centre.
 */
QVector<STransform> BuildDisplayTransforms(const SMirrorSetting& mirror, const SSectorSetting& sectors,
                                           const DVector3D& rotationCentre);
