#pragma once

#include <QStringList>

class CDataPack;

/**
 * Brings every setting of the frame into its range: a quantity is moved to the nearest value that makes
 * sense, a choice that there isn't, a number that isn't one and an invalid colour get their default. Another
 * version, or a damaged file, may have left any value; nobody who reads a setting has to think of that.
 *
 * @return the paths of what was changed
 */
QStringList BringIntoRange(CDataPack& preferences);
