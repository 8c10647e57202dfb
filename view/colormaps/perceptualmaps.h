#pragma once

#include <QByteArray>

/**
 * Four published maps whose colours differ as much as their values do (N. Smith and S. van der Walt, public
 * domain): entries 0 to 254 of the 256, each channel times 255 and cut to an integer. Red, green, blue of
 * each entry, from the low end.
 */
namespace PerceptualMap {

inline constexpr int ENTRIES = 255;

QByteArray Magma();
QByteArray Inferno();
QByteArray Plasma();
QByteArray Viridis();

} // namespace PerceptualMap
