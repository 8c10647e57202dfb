#pragma once

#include <QString>
#include <QVector>

/** One line of a table of drawings: a resource name and what is drawn for it. */
struct SDrawingRow
{
    QString sName;   ///< behind the prefix of the resource, for example "save.png"
    QString sSource; ///< NAME for the file NAME.svg
    QString sColor;  ///< "#rrggbb" for a drawing of one colour; empty where the drawing's own count
    int nSide = 0;   ///< where one image of a size of its own is wanted [pixels]
};

struct SDrawingTable
{
    QVector<SDrawingRow> rows; ///< in the order of the file
    QString sError;            ///< ":LINE: what is wrong", empty if the table is good
};

/**
 * Reads lines of a name, a source and perhaps a colour or a size, for example "128px". Empty lines, and those
 * that begin with #, count for nothing; a name that stands twice is an error.
 */
SDrawingTable ReadDrawingTable(const QString& sPath);
