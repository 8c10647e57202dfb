#include "frame/themeicon.h"

QIcon ThemeIcon(const QString& sResource) { return QIcon(sResource); }

void SetDarkIcons(bool) {}
