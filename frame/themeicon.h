#pragma once

#include <QIcon>

/**
 * An icon of the resources. Every icon of the program is made here, so that all follow the theme.
 *
 * @param sResource  its full name, for example ":/Icons/save.png"
 */
QIcon ThemeIcon(const QString& sResource);

/** Dark backgrounds from now on: icons in use show their variant for them at their next paint. */
void SetDarkIcons(bool bDark);
