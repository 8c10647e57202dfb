#pragma once

#include <QPalette>
#include <QString>
#include <QStringList>

/**
 * The style sheets of the themes "Light", "Dark", "Combinear" and "Medize", in this order.
 *
 * @param sOwnSheet  stands in the place of "Light" and of every sheet that can't be read
 * @return exactly 4; the text of each resource up to its first NUL byte
 */
QStringList LoadStyleSheets(const QString& sOwnSheet);

/**
 * The colours that go with a theme's sheet, for what no sheet reaches: items, links, painting of our own.
 *
 * @param nTheme  0 to 3, index of the sheet; 0 and any other give the palette that the platform had when the
 *                first theme was applied
 */
QPalette ThemePalette(int nTheme);

/** Whether a theme has a dark background; "Light" has one where the platform's palette is dark. */
bool IsDarkTheme(int nTheme);

/** Sets the application's palette and the kind of icons to a theme's. The sheet is for the caller to set. */
void ApplyThemeColors(int nTheme);
