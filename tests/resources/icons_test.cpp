#include "frame/themeicon.h"
#include "tests/support/files.h"
#include "window/stylesheets.h"

#include <QComboBox>
#include <QDirIterator>
#include <QDoubleSpinBox>
#include <QFile>
#include <QPainter>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace {

constexpr int THEMES[] = {0, 1, 2, 3};
constexpr int SIZES[] = {16, 24, 32, 48}; // those that must be drawn, not scaled [pixels]

QStringList IconNames()
{
    QStringList names;
    for (const QByteArray& line : Files::Read(ZENTO_SOURCE "/resources/icons/icons.txt").split('\n'))
        if (!line.trimmed().isEmpty() && !line.startsWith('#'))
            names.append(QString::fromUtf8(line.simplified().split(' ')[0]));
    return names;
}

/** The icon files that the program's code and forms name; a slot's number is taken as 1. */
QMap<QString, QString> NamedIcons()
{
    QMap<QString, QString> fileByIcon;
    const QRegularExpression name(R"(:/?Icons/([\w+@%.-]+\.(?:png|ico|svg)))");
    QDirIterator files(ZENTO_SOURCE, {"*.cpp", "*.h", "*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString sPath = files.next();
        if (sPath.contains(QRegularExpression("/(build|tests|tools)/")))
            continue;
        QRegularExpressionMatchIterator matches = name.globalMatch(QString::fromUtf8(Files::Read(sPath)));
        while (matches.hasNext())
            fileByIcon[matches.next().captured(1).replace("%1", "1")] = sPath;
    }
    return fileByIcon;
}

double Luminance(QRgb color)
{
    const auto linear = [](int nChannel) {
        const double d = nChannel / 255.0;
        return d <= 0.03928 ? d / 12.92 : std::pow((d + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

double Contrast(const QColor& one, const QColor& other)
{
    const double dOne = Luminance(one.rgb()), dOther = Luminance(other.rgb());
    return (std::max(dOne, dOther) + 0.05) / (std::min(dOne, dOther) + 0.05);
}

/** Mean contrast of what is drawn, each pixel by how much it covers; 0 where nothing is. */
double MeanContrast(const QImage& image, const QColor& background)
{
    double dSum = 0.0, dCover = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            dSum += color.alphaF() * Contrast(color, background);
            dCover += color.alphaF();
        }
    }
    return dCover > 0.0 ? dSum / dCover : 0.0;
}

QStringList s_sWarningList;

void KeepWarning(QtMsgType, const QMessageLogContext&, const QString& sText) { s_sWarningList.append(sText); }

class Icons : public testing::Test
{
protected:
    ~Icons() override { ApplyThemeColors(0); }

    static QImage Image(const QIcon& icon, int nSize, QIcon::Mode eMode = QIcon::Normal)
    {
        return icon.pixmap(QSize(nSize, nSize), eMode).toImage().convertToFormat(QImage::Format_ARGB32);
    }
};

} // namespace

TEST_F(Icons, EachThatTheProgramNamesIsInTheResources)
{
    const QMap<QString, QString> fileByIcon = NamedIcons();
    EXPECT_FALSE(fileByIcon.isEmpty());
    for (auto it = fileByIcon.begin(); it != fileByIcon.end(); ++it)
        EXPECT_TRUE(QFile::exists(":/Icons/" + it.key()))
            << qPrintable(it.key()) << " of " << qPrintable(it.value())
            << "; add it to resources/icons/icons.txt";
}

TEST_F(Icons, EachCanBeReadUnderItsBareName)
{
    for (const QString& sName : IconNames())
        EXPECT_EQ(QIcon(":/Icons/" + sName).pixmap(24, 24).size(), QSize(24, 24)) << qPrintable(sName);
}

TEST_F(Icons, EachIsLegibleOnTheBackgroundOfEveryTheme)
{
    for (const int nTheme : THEMES) {
        ApplyThemeColors(nTheme);
        for (const QString& sName : IconNames()) {
            const QIcon icon = ThemeIcon(":/Icons/" + sName);
            // The cursor has a rim and the program's icon a ground of their own.
            const double dLeast = sName == "arrow.png" || sName == "zento.svg" ? 1.0 : 3.0;
            for (const int nSize : SIZES) {
                const QImage image = Image(icon, nSize);
                EXPECT_EQ(image.size(), QSize(nSize, nSize)) << qPrintable(sName);
                EXPECT_GE(MeanContrast(image, ThemePalette(nTheme).color(QPalette::Window)), dLeast)
                    << qPrintable(sName) << " at " << nSize << " in theme " << nTheme;
            }
        }
    }
}

TEST_F(Icons, ASplitShowsTheLayoutThatItMakes)
{
    // Side by side the halves left and right differ, one above the other those above and below.
    const auto areMirrored = [](const char* sName, bool bSideways) {
        const QImage image = Image(ThemeIcon(sName), 24);
        return image == image.mirrored(bSideways, !bSideways);
    };
    EXPECT_FALSE(areMirrored(":/Icons/horizontal.ico", true)); // Qt::Horizontal: beside each other
    EXPECT_TRUE(areMirrored(":/Icons/horizontal.ico", false));
    EXPECT_TRUE(areMirrored(":/Icons/vertical.ico", true));
    EXPECT_FALSE(areMirrored(":/Icons/vertical.ico", false));
}

TEST_F(Icons, AnIconInUseFollowsTheThemeAndTellsDisabledAndSelected)
{
    const QIcon icon = ThemeIcon(":/Icons/save.png");
    const QColor light("#efefef"), dark("#2b2d30");
    SetDarkIcons(false);
    const QImage onLight = Image(icon, 24);
    EXPECT_GT(MeanContrast(onLight, light), MeanContrast(onLight, dark));
    EXPECT_LT(qAlpha(Image(icon, 24, QIcon::Disabled).pixel(4, 12)), 128) << "a line is faint";
    EXPECT_EQ(qAlpha(onLight.pixel(4, 12)), 255);
    SetDarkIcons(true);
    EXPECT_GT(MeanContrast(Image(icon, 24), dark), MeanContrast(Image(icon, 24), light));
    ApplyThemeColors(3); // light, and so is what it puts behind a selection
    EXPECT_EQ(Image(icon, 24, QIcon::Selected), onLight);
}

TEST_F(Icons, TwiceAsManyPixelsAreDrawnAndNotEnlarged)
{
    const QIcon icon = ThemeIcon(":/Icons/x+.ico");
    QImage screen(48, 48, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2.0);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    screen.setDevicePixelRatio(1.0);
    EXPECT_EQ(screen.convertToFormat(QImage::Format_ARGB32), Image(icon, 48));
    EXPECT_EQ(icon.actualSize(QSize(64, 64)), QSize(48, 48));
    EXPECT_EQ(Image(icon, 20).size(), QSize(20, 20)) << "sizes between are scaled down";
}

TEST(Themes, TextIsReadableAndDisabledTextStillIs)
{
    for (const int nTheme : THEMES) {
        const QPalette palette = ThemePalette(nTheme);
        for (const QPalette::ColorRole eGround :
             {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
            const QColor ground = palette.color(eGround);
            const double dText = Contrast(palette.color(QPalette::Active, QPalette::Text), ground);
            EXPECT_GE(dText, 7.0) << nTheme;
            const double dDisabled = Contrast(palette.color(QPalette::Disabled, QPalette::Text), ground);
            EXPECT_LT(dDisabled, dText / 2.0) << nTheme;
            if (nTheme != 0) { // the platform's own is as it is
                EXPECT_GE(dDisabled, 3.0) << nTheme;
                EXPECT_GE(Contrast(palette.color(QPalette::Link), ground), 4.5) << nTheme;
            }
        }
        const double dSelected =
            Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight));
        EXPECT_GE(dSelected, nTheme == 0 ? 3.0 : 4.5) << nTheme;
    }
}

TEST(Themes, EachSheetParsesAndFindsItsMarks)
{
    const QStringList sheets = LoadStyleSheets("own");
    const QRegularExpression mark(R"(url\(([^)]*)\))");
    for (const int nTheme : {1, 2, 3}) {
        ASSERT_NE(sheets[nTheme], "own");
        s_sWarningList.clear();
        const QtMessageHandler former = qInstallMessageHandler(KeepWarning);
        QWidget window;
        new QTreeWidget(&window);
        new QDoubleSpinBox(&window);
        new QComboBox(&window);
        new QToolButton(&window);
        new QTabWidget(&window);
        window.setStyleSheet(sheets[nTheme]);
        window.grab(); // a wrong property is told only when its rule is used
        qInstallMessageHandler(former);
        EXPECT_EQ(s_sWarningList, QStringList()) << nTheme;
        QRegularExpressionMatchIterator marks = mark.globalMatch(sheets[nTheme]);
        EXPECT_TRUE(marks.hasNext());
        while (marks.hasNext()) {
            const QString sName = marks.next().captured(1);
            EXPECT_TRUE(QFile::exists(sName)) << qPrintable(sName);
        }
    }
}
