#include "window/stylesheets.h"

#include "frame/themeicon.h"

#include <QApplication>
#include <QFile>

namespace {

struct SRoleColor
{
    QPalette::ColorRole eRole;
    const char* sColor[4]; // of "Light" none, it keeps the platform's
};

constexpr const char* SHEET_RESOURCES[] = {"", ":/qss/dark.qss", ":/qss/combinear.qss", ":/qss/medize.qss"};
constexpr int THEME_COUNT = int(std::size(SHEET_RESOURCES));

constexpr SRoleColor ROLE_COLORS[] = {
    {QPalette::Window, {"", "#2b2d30", "#33332b", "#e6edef"}},
    {QPalette::WindowText, {"", "#d9dce0", "#e4dcc5", "#1b2a30"}},
    {QPalette::Base, {"", "#1e2023", "#292922", "#fbfdfd"}},
    {QPalette::AlternateBase, {"", "#232528", "#2f2f27", "#eff5f6"}},
    {QPalette::Text, {"", "#d9dce0", "#e4dcc5", "#1b2a30"}},
    {QPalette::PlaceholderText, {"", "#8b9097", "#9a937c", "#6a7c83"}},
    {QPalette::Button, {"", "#3a3d42", "#47473a", "#f7fafa"}},
    {QPalette::ButtonText, {"", "#d9dce0", "#e4dcc5", "#1b2a30"}},
    {QPalette::BrightText, {"", "#ff7078", "#ff8a70", "#c0202c"}},
    {QPalette::Highlight, {"", "#2a63a5", "#6b5320", "#bfe3e4"}},
    {QPalette::HighlightedText, {"", "#ffffff", "#fff4da", "#0b2a2e"}},
    {QPalette::Link, {"", "#6db3f7", "#e6b559", "#006f9c"}},
    {QPalette::LinkVisited, {"", "#b79cf0", "#c9a08a", "#6a4a9c"}},
    {QPalette::ToolTipBase, {"", "#3a3d42", "#e8d9b0", "#fdfbe8"}},
    {QPalette::ToolTipText, {"", "#eceef0", "#2b2515", "#1b2a30"}},
    {QPalette::Light, {"", "#53585f", "#5c5c4b", "#ffffff"}},
    {QPalette::Midlight, {"", "#45494f", "#4e4e40", "#f2f6f7"}},
    {QPalette::Mid, {"", "#3c3f44", "#46463a", "#b4c4c9"}},
    {QPalette::Dark, {"", "#1e2023", "#24241d", "#8fa5ac"}},
    {QPalette::Shadow, {"", "#101113", "#16160f", "#5f757d"}},
};
constexpr QPalette::ColorRole TEXT_ROLES[] = {QPalette::WindowText, QPalette::Text, QPalette::ButtonText};
constexpr const char* DISABLED_TEXT[THEME_COUNT] = {"", "#82878e", "#918b77", "#71838a"};

bool HasOwnColors(int nTheme) { return nTheme > 0 && nTheme < THEME_COUNT; }

} // namespace

QStringList LoadStyleSheets(const QString& sOwnSheet)
{
    QStringList sheets;
    for (const char* const sResource : SHEET_RESOURCES) {
        QFile file{QString(sResource)};
        if (*sResource && file.open(QIODevice::ReadOnly))
            sheets.append(QString::fromUtf8(file.readAll().constData()));
        else
            sheets.append(sOwnSheet);
    }
    return sheets;
}

QPalette ThemePalette(int nTheme)
{
    static const QPalette s_platform = QApplication::palette();
    QPalette palette = s_platform;
    if (!HasOwnColors(nTheme))
        return palette;
    for (const SRoleColor& row : ROLE_COLORS)
        palette.setColor(row.eRole, QColor(row.sColor[nTheme]));
    for (const QPalette::ColorRole eRole : TEXT_ROLES)
        palette.setColor(QPalette::Disabled, eRole, QColor(DISABLED_TEXT[nTheme]));
    return palette;
}

bool IsDarkTheme(int nTheme)
{
    return ThemePalette(nTheme).color(QPalette::Active, QPalette::Window).lightness() < 128;
}

void ApplyThemeColors(int nTheme)
{
    QApplication::setPalette(ThemePalette(nTheme));
    SetDarkIcons(IsDarkTheme(nTheme));
}
