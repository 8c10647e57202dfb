#include "window/preferences/preferencesdialog.h"

#include "frame/applicationinfo.h"
#include "frame/memory/memorymanager.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/ui/colorbutton.h"
#include "tests/support/ownmodules.h"
#include "tests/support/promptscript.h"
#include "tests/support/testmodule.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileInfo>
#include <QListWidget>
#include <QScrollArea>
#include <QSettings>
#include <QSignalSpy>
#include <QTableWidget>
#include <QWheelEvent>

namespace {

/** A module with a page that writes a setting of its own. */
class CPageModule : public CTestModule
{
public:
    using CTestModule::CTestModule;
    QWidget* CreatePreferencesWidget(QWidget* pParent) override { return new QWidget(pParent); }
    bool ValidatePreferences(QWidget* pPage) override { return pPage && s_bAccepts; }
    void ApplyPreferences(CPreferences* pPreferences, QWidget*) override
    {
        pPreferences->SetInt("Velor.PhantomDetail", 2, 0);
    }
    static inline bool s_bAccepts = true;
};

class PreferencesDialog : public testing::Test
{
protected:
    PreferencesDialog()
    {
        CModuleRegistry::Instance().SetFactory(6, [] { return std::make_unique<CPageModule>(6, "CGNS"); });
        CModuleRegistry::Instance().CreateModules();
        Reset();
    }
    ~PreferencesDialog() override { Reset(); }

    static QSettings Settings()
    {
        return QSettings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    }
    static void Reset()
    {
        Settings().clear();
        CPreferences::Instance() = CPreferences();
        CPreferences::Instance().Apply();
        CPageModule::s_bAccepts = true;
    }
    static CDataPack Stored()
    {
        CDataPack pack;
        pack.FromBytes(Settings().value("data").toByteArray(), -1.0);
        return pack;
    }
    template <class Widget> static Widget* Find(const QWidget& dialog, const char* sName)
    {
        Widget* const pWidget = dialog.findChild<Widget*>(sName);
        EXPECT_NE(pWidget, nullptr) << sName;
        return pWidget;
    }

    const COwnModules m_modules;
};

} // namespace

TEST_F(PreferencesDialog, OkTakesOverSavesAndSignalsOnce)
{
    CPreferencesDialog dialog;
    QSignalSpy spy(&dialog, &CPreferencesDialog::SignalPreferencesChanged);
    Find<QCheckBox>(dialog, "m_pMemoryLimitCB")->click();
    Find<QSpinBox>(dialog, "m_pMemoryLimitE")->setValue(3);
    Find<QDoubleSpinBox>(dialog, "m_pAngleLimitE")->setValue(45.0);
    Find<QSpinBox>(dialog, "m_pPointSizeE")->setValue(12);
    EXPECT_EQ(CMemoryManager::Instance().GetLimit(), 0) << "the dialog works on a copy";
    Set(CPreferences::Instance(), PreferenceKey::RECENT_DIRECTORY, "/cases"); // while the dialog is open
    Find<QPushButton>(dialog, "m_pOKB")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(CMemoryManager::Instance().GetLimit(), 3221225472);
    EXPECT_EQ(CPreferences::Instance().Draw().fPointSize, 12.0F);
    const CDataPack stored = Stored();
    EXPECT_EQ(Get(stored, PreferenceKey::MEMORY_LIMIT), 3221225472);
    EXPECT_DOUBLE_EQ(Get(stored, PreferenceKey::ANGLE_LIMIT), M_PI / 4.0);
    EXPECT_EQ(Get(stored, PreferenceKey::RECENT_DIRECTORY), "/cases");
    EXPECT_EQ(stored.GetInt("Velor.PhantomDetail", 0), 2) << "what a module's page wrote";
}

TEST_F(PreferencesDialog, UnlimitedMemoryIsStoredAsZero)
{
    Set(CPreferences::Instance(), PreferenceKey::MEMORY_LIMIT, 5LL << 30);
    CPreferencesDialog dialog;
    auto* const pLimit = Find<QSpinBox>(dialog, "m_pMemoryLimitE");
    EXPECT_EQ(pLimit->text(), "5 GB");
    pLimit->setValue(1);
    EXPECT_EQ(pLimit->text(), "1 GB");
    Find<QCheckBox>(dialog, "m_pMemoryLimitCB")->click();
    EXPECT_EQ(pLimit->text(), "Unlimited");
    EXPECT_FALSE(pLimit->isEnabled());
    dialog.accept();
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::MEMORY_LIMIT), 0);
}

TEST_F(PreferencesDialog, CancelLeavesPackAndDrawSettings)
{
    Set(CPreferences::Instance(), PreferenceKey::MOUSE_SENSITIVITY, 0.0612345); // more digits than are shown
    CPreferences::Instance().Apply();
    const QByteArray before = CPreferences::Instance().ToBytes();
    {
        CPreferencesDialog dialog;
        Find<QSpinBox>(dialog, "m_pPointSizeE")->setValue(30);
        Find<QComboBox>(dialog, "m_pThemeCB")->setCurrentIndex(2);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
    }
    EXPECT_EQ(CPreferences::Instance().ToBytes(), before);
    EXPECT_EQ(CPreferences::Instance().Draw().fPointSize, 8.0F);
    EXPECT_TRUE(Stored().IsEmpty());
    CPreferencesDialog dialog;
    dialog.accept();
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::MOUSE_SENSITIVITY), 0.0612345)
        << "what wasn't edited isn't rounded";
}

TEST_F(PreferencesDialog, AModuleThatRefusesItsPageKeepsTheDialogOpen)
{
    CPageModule::s_bAccepts = false;
    CPreferencesDialog dialog;
    dialog.show();
    QSignalSpy spy(&dialog, &CPreferencesDialog::SignalPreferencesChanged);
    Find<QSpinBox>(dialog, "m_pPointSizeE")->setValue(30);
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(spy.count(), 0);
    EXPECT_TRUE(CPreferences::Instance().IsEmpty());
    auto* const pList = Find<QListWidget>(dialog, "m_pListWidget");
    EXPECT_EQ(pList->currentItem()->text(), "CGNS");
    EXPECT_EQ(pList->count(), 5);
}

TEST_F(PreferencesDialog, ColorsAreChosenAndReset)
{
    CPreferencesDialog dialog;
    auto* const pMiddle = Find<CColorButton>(dialog, "m_pBGColorB1");
    {
        CPromptScript user;
        user.ChooseColor(QColor(1, 2, 3));
        user.ChooseColor(QColor()); // cancelled
        pMiddle->click();
        pMiddle->click();
    }
    EXPECT_EQ(pMiddle->styleSheet(), "background-color: #010203");
    EXPECT_TRUE(dialog.Apply());
    EXPECT_EQ(CPreferences::Instance().Draw().background.gradient()->stops()[0].second, QColor(1, 2, 3));
    Find<QPushButton>(dialog, "m_pResetColorsB")->click();
    EXPECT_EQ(pMiddle->styleSheet(), "background-color: #6992b6");
    EXPECT_TRUE(dialog.Apply());
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::BACKGROUND_COLORS[0]), QColor(105, 146, 182));
}

TEST_F(PreferencesDialog, TheChosenPresetIsShownWholeAndStored)
{
    CPreferencesDialog dialog;
    Find<QComboBox>(dialog, "m_pKeyPresetCB")->setCurrentText("Tecplot");
    const auto* const pTable = Find<QTableWidget>(dialog, "m_pAcceleratorTable");
    EXPECT_EQ(pTable->rowCount(), 30);
    EXPECT_EQ(pTable->item(1, 0)->text(), "Zoom In");
    EXPECT_EQ(pTable->item(1, 1)->text(), "Middle Mouse Button + Drag Up");
    dialog.accept();
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::KEY_PRESET), 4);
}

TEST_F(PreferencesDialog, TheWheelTurnsOnlyTheFieldWithTheFocus)
{
    CPreferencesDialog dialog;
    dialog.resize(400, 200); // so small that the page scrolls
    dialog.show();
    auto* const pSize = Find<QSpinBox>(dialog, "m_pPointSizeE");
    const auto turn = [&] {
        QWheelEvent event(QPointF(5, 5), pSize->mapToGlobal(QPoint(5, 5)), {}, {0, 120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pSize, &event);
        return pSize->value();
    };
    EXPECT_EQ(turn(), 8);
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    pSize->setFocus();
    EXPECT_EQ(turn(), 9);
}

TEST_F(PreferencesDialog, TabGoesFromTheListOverThePageToTheButtons)
{
    CPreferencesDialog dialog;
    dialog.show();
    QStringList sNameList;
    const QWidget* pWidget = Find<QListWidget>(dialog, "m_pListWidget");
    do {
        if ((pWidget->focusPolicy() & Qt::TabFocus) && pWidget->isVisible() && pWidget->isEnabled())
            sNameList.append(pWidget->objectName());
        pWidget = pWidget->nextInFocusChain();
    } while (pWidget->objectName() != "m_pListWidget");
    EXPECT_EQ(sNameList.mid(0, 3), QStringList({"m_pListWidget", "m_pDefaultColormapCB", "m_pBGColorB1"}));
    EXPECT_EQ(sNameList.mid(sNameList.size() - 4),
              QStringList({"m_pFlipZoomCB", "m_pOKB", "m_pApplyB", "m_pCancelB"}));
}

TEST_F(PreferencesDialog, SettingsThatCanNotBeSavedAreToldOnce)
{
    const QString sFileName = Settings().fileName();
    QDir().mkpath(QFileInfo(sFileName).path());
    ASSERT_TRUE(QFile(sFileName).open(QIODevice::WriteOnly));
    QFile::setPermissions(sFileName, QFile::ReadOwner);
    {
        CPromptScript user;
        user.Press("Ok");
        CPreferencesDialog dialog;
        EXPECT_TRUE(dialog.Apply());
        dialog.accept();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    QFile::setPermissions(sFileName, QFile::ReadOwner | QFile::WriteOwner);
}
