#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/ownmodules.h"
#include "tests/support/testsettings.h"
#include "window/mainwindow.h"

#include <QDockWidget>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

namespace {

/** Pictures of what stands round the views of a window on show. */
QVector<QImage> Surroundings(const QWidget& window)
{
    QCoreApplication::processEvents();
    QVector<QImage> images;
    for (QWidget* const pWidget : window.findChildren<QWidget*>())
        if (pWidget->isVisible() &&
            (qobject_cast<QToolBar*>(pWidget) || qobject_cast<QMenuBar*>(pWidget) ||
             qobject_cast<QStatusBar*>(pWidget) || qobject_cast<QDockWidget*>(pWidget)))
            images.append(pWidget->grab().toImage());
    return images;
}

} // namespace

TEST(Themes, AThemeLooksTheSameFromTheStartAndOnceItIsChosen)
{
    const COwnModules modules;
    const CFreshPreferences fresh;
    CPreferences& preferences = CPreferences::Instance();
    for (const qint64 nTheme : {1, 2, 3, 0}) { // at last what all other tests have
        Set(preferences, PreferenceKey::THEME, nTheme);
        EXPECT_TRUE(preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME));
        CMainWindow window;
        window.show();
        const QVector<QImage> atStart = Surroundings(window);
        for (const qint64 nOther : {(nTheme + 1) % 4, nTheme}) {
            Set(preferences, PreferenceKey::THEME, nOther);
            window.SlotUpdatePreferences();
        }
        const QVector<QImage> later = Surroundings(window);
        ASSERT_EQ(later.size(), atStart.size());
        for (int n = 0; n < later.size(); ++n)
            EXPECT_TRUE(later[n] == atStart[n]) << "theme " << nTheme << ", widget " << n;
    }
}
