#pragma once

#include <QtGlobal>

#include <limits>

/** Which colormap a drawable uses, and over which range of its scalar. */
struct SColormapRecord
{
    static constexpr qint32 RGB_LINEAR = 17;

    qint32 nId = RGB_LINEAR; ///< index into the table of colormaps
    double dMinimum = 0.0;   ///< the range in use
    double dMaximum = 1.0;
    /** Range found over the drawable alone; unset while the minimum exceeds the maximum. */
    double dLocalMinimum = std::numeric_limits<double>::max();
    double dLocalMaximum = std::numeric_limits<double>::lowest();

    double Range() const { return dMaximum - dMinimum; }
    /** The colours run from the greatest value to the least. */
    bool IsInverted() const { return dMinimum > dMaximum; }
    bool HasLocalRange() const { return dLocalMinimum <= dLocalMaximum; }

    friend bool operator==(const SColormapRecord&, const SColormapRecord&) = default;
};
