#pragma once

#include <QString>
#include <QStringList>

/**
 * The style sheets of the themes "Light", "Dark", "Combinear" and "Medize", in this order.
 *
 * @param sOwnSheet  stands in the place of "Light" and of every sheet that can't be read
 * @return exactly 4; the text of each resource up to its first NUL byte
 */
QStringList LoadStyleSheets(const QString& sOwnSheet);
