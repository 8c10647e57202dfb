#pragma once

#include <QStringList>
#include <QVector>

/** Files of one directory whose names differ in a number alone. */
struct STransientSeries
{
    QStringList sFileList; ///< full names, by number
    QVector<double> times; ///< parallel: the numbers

    bool IsSeries() const { return sFileList.size() >= 2; }
};

/**
 * The series that a file belongs to. A name may hold several numbers: the one that most files differ in
 * counts, of equals the last. Of files with the same number ("1", "01") the given one counts, else the first
 * by name. A file without such neighbours gives no series (an empty one).
 */
STransientSeries FindTransientSeries(const QString& sFileName);
