#pragma once

#include <QIcon>

/**
 * An icon of the resources. Every icon of the program is made here, so that all follow the theme.
 *
 * Nothing is read before the icon is painted. It is never drawn larger than 48 device pixels, and is sharp
 * at 16, 24, 32 and 48; a selected one is drawn for the palette's highlight instead of the background.
 *
 * @param sResource  its full name, for example ":/Icons/save.png"
 * @return the file itself where the name isn't one of resources/icons/icons.txt
 */
QIcon ThemeIcon(const QString& sResource);

/**
 * Dark backgrounds from now on: icons in use show their variant for them at their next paint.
 *
 * @note main thread only, like everything that paints
 */
void SetDarkIcons(bool bDark);
