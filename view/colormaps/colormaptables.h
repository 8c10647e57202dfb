#pragma once

#include "scene/colormaprecord.h"

#include <QByteArray>
#include <QColor>
#include <QGradient>
#include <QStringList>
#include <QVector>

/** A colormap: control colours, and what the shaders read of it. */
struct SColormap
{
    static constexpr int TEXELS = 1024;

    QString sName;
    QVector<int> red, green, blue; ///< control colours, 0 to 255, from the low end of the range
    QByteArray texels;             ///< red, green, blue of each of the 1024, from the low end

    int ControlCount() const { return red.size(); }
    QColor ControlColor(int n) const { return {red[n], green[n], blue[n]}; }
};

/** The eighteen colormaps; the index is the id that is stored. Made at the first call, main thread only. */
const QVector<SColormap>& colormapTables();

/** The colormap of an id; null for one outside the list. */
const SColormap* FindColormap(qint32 nId);

/** The names in order of the ids. */
QStringList ColormapNames();

/** The id of a name; -1 for an unknown one. */
qint32 ColormapId(const QString& sName);

/**
 * The colour of one value for charts. It runs from the far end of the list: the maximum of the range has the
 * first control colour, the minimum the last but one. Values outside the range count as its ends, and all
 * values as the minimum where the range is empty. Invalid for an unknown id.
 */
QColor colormapColor(const SColormapRecord& record, double dValue);

/** The map as gradient stops from 0, its high end, to 1, its low end; empty for an unknown id. */
QGradientStops LegendStops(qint32 nId);
