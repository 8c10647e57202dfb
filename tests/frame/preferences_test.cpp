#include "frame/preferences.h"

#include "frame/memorymanager.h"
#include "frame/messagesink.h"
#include "frame/preferencekeys.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

constexpr const char* ORGANISATION = "NOVRIK-test";

/** Each test has a settings file of its own. */
class Preferences : public testing::Test
{
protected:
    ~Preferences() override
    {
        CMessageSink::Instance().SetDebugLevel(0);
        CMemoryManager::Instance().SetLimit(0);
        QFile::remove(FileName());
    }
    QString Application() const { return testing::UnitTest::GetInstance()->current_test_info()->name(); }
    QString FileName() const
    {
        return QSettings(QSettings::UserScope, ORGANISATION, Application()).fileName();
    }
    void Save(const CPreferences& preferences) { EXPECT_TRUE(preferences.Save(ORGANISATION, Application())); }
    void Load(CPreferences& preferences) { preferences.Load(ORGANISATION, Application()); }
};

} // namespace

TEST_F(Preferences, AFirstStartHasNoKeysAndAllDefaults)
{
    CPreferences preferences;
    Load(preferences);
    EXPECT_TRUE(preferences.IsEmpty());
    EXPECT_EQ(preferences.Draw().fPointSize, 8.0F);
    EXPECT_EQ(preferences.Draw().selectColor, QColor(Qt::magenta));
    const auto* const pGradient = preferences.Draw().background.gradient();
    ASSERT_NE(pGradient, nullptr);
    EXPECT_EQ(pGradient->coordinateMode(), QGradient::ObjectBoundingMode);
    EXPECT_EQ(pGradient->stops(),
              QGradientStops(
                  {{0.0, QColor(105, 146, 182)}, {0.4, QColor(81, 113, 150)}, {0.8, QColor(16, 56, 121)}}));
}

TEST_F(Preferences, SettingsAndUserVariablesComeBack)
{
    CPreferences preferences;
    Set(preferences, PreferenceKey::LINE_THICKNESS, 3.5);
    Set(preferences, PreferenceKey::REMOTE_HOST, 4, "cluster");
    Set(preferences, PreferenceKey::BACKGROUND_COLORS[1], QColor(Qt::green));
    const QVector<SStoredVariable> variables = {{3, "Mach²", "<M[Q]>^2", 1, {"M[Q]"}},
                                                {5, "twice", "2 * <P[Q]> + <Pinf>", 2, {"P[Q]", "Pinf"}}};
    preferences.SetStoredVariables(variables);
    Save(preferences);

    CPreferences other;
    Load(other);
    EXPECT_EQ(other.ToBytes(), preferences.ToBytes());
    EXPECT_EQ(other.Draw().fLineThickness, 3.5F);
    EXPECT_EQ(other.Draw().background.gradient()->stops()[1].second, QColor(Qt::green));
    EXPECT_EQ(other.StoredVariables(), variables);

    other.SetStoredVariables({variables[1]});
    Save(other);
    const QSettings settings(QSettings::UserScope, ORGANISATION, Application());
    EXPECT_FALSE(settings.contains("variable/usedvar1")) << "the inputs of a variable that is gone";
    Load(preferences);
    EXPECT_EQ(preferences.StoredVariables(), QVector<SStoredVariable>({variables[1]}));
}

TEST_F(Preferences, WhatIsAppliedReachesTheMemoryManagerAndTheLog)
{
    CPreferences preferences;
    Set(preferences, PreferenceKey::MEMORY_LIMIT, 3LL << 30);
    Set(preferences, PreferenceKey::DEBUG_LEVEL, 2);
    preferences.Apply();
    EXPECT_EQ(CMemoryManager::Instance().GetLimit(), 3221225472);
    EXPECT_EQ(CMessageSink::Instance().GetDebugLevel(), 2);
}

TEST_F(Preferences, TheFileCanBeReadByItsOwnerAlone)
{
    const CPreferences preferences;
    Save(preferences);
    Save(preferences); // the second time the file is replaced
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFileInfo(FileName()).permissions() & others);
}

TEST_F(Preferences, OfADamagedFileWhatCouldBeReadStands)
{
    CPreferences preferences;
    Set(preferences, PreferenceKey::RECENT_DIRECTORY, "/cases"); // the first child of the two
    Set(preferences, PreferenceKey::REMOTE_HOST, 1, "cluster");
    QSettings settings(QSettings::UserScope, ORGANISATION, Application());
    settings.setValue("data", preferences.ToBytes().chopped(20));
    settings.setValue("variable/id", QVariantList{1, 2});
    settings.setValue("variable/name", QStringList{"a", "b"});
    settings.setValue("variable/formula", QStringList{"1"});
    settings.setValue("variable/position", QVariantList{0, 0});
    settings.sync();
    CPreferences other;
    Load(other);
    EXPECT_EQ(Get(other, PreferenceKey::RECENT_DIRECTORY), "/cases");
    EXPECT_EQ(Get(other, PreferenceKey::REMOTE_HOST, 1), "");
    EXPECT_EQ(other.StoredVariables().size(), 1);
}
