#include "frame/preferences/preferences.h"

#include "frame/memory/memorymanager.h"
#include "frame/messagesink.h"
#include "frame/preferences/preferencekeys.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>

#include <limits>

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
    void Save(CPreferences& preferences) { EXPECT_TRUE(preferences.Save(ORGANISATION, Application())); }
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
    CPreferences preferences;
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

TEST_F(Preferences, OfTwoInstancesEachWritesOnlyWhatItChanged)
{
    CPreferences first, second;
    Set(first, PreferenceKey::POINT_SIZE, 20);
    Set(first, PreferenceKey::THEME, 1);
    Save(first);
    Load(second);
    Set(first, PreferenceKey::POINT_SIZE, 5);
    Set(first, PreferenceKey::SHOW_AXES, false);
    Save(first);
    Set(second, PreferenceKey::THEME, 0); // back to the default: the key goes
    Set(second, PreferenceKey::LINE_THICKNESS, 4.0);
    Save(second);
    EXPECT_EQ(Get(second, PreferenceKey::POINT_SIZE), 20) << "a running instance keeps its settings";

    CPreferences third;
    Load(third);
    EXPECT_EQ(Get(third, PreferenceKey::POINT_SIZE), 5);
    EXPECT_FALSE(Get(third, PreferenceKey::SHOW_AXES));
    EXPECT_EQ(Get(third, PreferenceKey::THEME), 0);
    EXPECT_EQ(Get(third, PreferenceKey::LINE_THICKNESS), 4.0);
}

TEST_F(Preferences, ListsOfTwoInstancesBecomeOne)
{
    using namespace PreferenceKey;
    const SStoredVariable shared{1, "shared", "1", 0, {}}, gone{2, "gone", "2", 0, {}};
    CPreferences first, second;
    Set(first, RECENT_FILES, {"c", "b", "a"});
    Set(first, REMOTE_NAME, 1, "old");
    Set(first, REMOTE_PORT, 1, 2222);
    first.SetStoredVariables({shared, gone});
    Save(first);
    Load(second);

    Set(first, RECENT_FILES, {"d", "c", "b", "a"});
    Set(first, REMOTE_NAME, 2, "of the first");
    Set(first, REMOTE_PORT, 2, 2200);
    first.SetStoredVariables({shared, gone, {3, "x", "3", 0, {}}});
    Save(first);
    Set(second, RECENT_FILES, {"e", "b", "c"}); // used "e" and "b", removed "a"
    Set(second, REMOTE_NAME, 2, "of the second");
    Set(second, REMOTE_NAME, 1, "renamed");
    second.SetStoredVariables({{1, "shared", "1 + 1", 0, {}}, {3, "y", "4", 0, {}}});
    Save(second);

    CPreferences third;
    Load(third);
    EXPECT_EQ(Get(third, RECENT_FILES), QStringList({"e", "b", "d", "c"}));
    EXPECT_EQ(third.SubPackIds(REMOTE_PACK), QVector<qint64>({1, 2, 3}));
    EXPECT_EQ(Get(third, REMOTE_NAME, 1), "renamed");
    EXPECT_EQ(Get(third, REMOTE_PORT, 1), 2222);
    EXPECT_EQ(Get(third, REMOTE_NAME, 2), "of the first");
    EXPECT_EQ(Get(third, REMOTE_NAME, 3), "of the second");
    EXPECT_EQ(Get(third, REMOTE_PORT, 3), 22) << "nothing of another computer under its name";
    EXPECT_EQ(third.StoredVariables(),
              QVector<SStoredVariable>(
                  {{1, "shared", "1 + 1", 0, {}}, {3, "x", "3", 0, {}}, {2, "y", "4", 0, {}}}));
    EXPECT_EQ(Get(second, REMOTE_NAME, 3), "of the second") << "and what is in use agrees with the store";
    EXPECT_EQ(second.StoredVariables(), third.StoredVariables());
}

TEST_F(Preferences, WhatThisVersionDoesNotKnowStaysInTheStore)
{
    QSettings settings(QSettings::UserScope, ORGANISATION, Application());
    CDataPack newer;
    newer.SetInt("Future.Setting", 7, 0);
    Set(newer, PreferenceKey::THEME, 99);
    settings.setValue("data", newer.ToBytes());
    settings.setValue("variable/unit", "m");
    settings.setValue("mainwindowstate", QByteArray("x"));
    settings.sync();
    CPreferences preferences;
    Load(preferences);
    EXPECT_EQ(Get(preferences, PreferenceKey::THEME), 0);
    Set(preferences, PreferenceKey::POINT_SIZE, 3);
    Save(preferences);
    settings.sync();
    CDataPack stored;
    EXPECT_TRUE(stored.FromBytes(settings.value("data").toByteArray(), -1.0));
    EXPECT_EQ(stored.GetInt("Future.Setting", 0), 7);
    EXPECT_EQ(Get(stored, PreferenceKey::THEME), 99) << "the user has not chosen another";
    EXPECT_EQ(Get(stored, PreferenceKey::POINT_SIZE), 3);
    EXPECT_EQ(settings.value("variable/unit"), "m");
    EXPECT_EQ(settings.value("mainwindowstate"), QByteArray("x"));
}

TEST_F(Preferences, AStoreThatIsDamagedMeanwhileIsMadeWholeAgain)
{
    for (const QByteArray& content :
         {QByteArray("[General]\ndata=@ByteArray(\\0\\0)\n"), QByteArray("\0\xff=[", 4)}) {
        CPreferences preferences;
        Set(preferences, PreferenceKey::REMOTE_HOST, 1, "cluster");
        Save(preferences);
        Files::Write(FileName(), content);
        Set(preferences, PreferenceKey::POINT_SIZE, 3);
        Save(preferences);
        CPreferences other;
        Load(other);
        EXPECT_EQ(other.ToBytes(), preferences.ToBytes());
        QFile::remove(FileName());
    }
}

TEST_F(Preferences, ValuesOutOfRangeAreMendedAndLogged)
{
    using namespace PreferenceKey;
    CPreferences preferences;
    Set(preferences, THEME, 99);
    Set(preferences, KEY_PRESET, 17);
    Set(preferences, FONT_INCREMENT, -1000);
    Set(preferences, SPLITTER_WIDTH, -5);
    Set(preferences, MEMORY_LIMIT, -1);
    Set(preferences, MOUSE_SENSITIVITY, std::numeric_limits<double>::quiet_NaN());
    Set(preferences, KEYBOARD_SENSITIVITY, 0.0);
    Set(preferences, ANGLE_LIMIT, 100.0);
    Set(preferences, REMOTE_PORT, 3, 0);
    Set(preferences, REMOTE_NAME, 3, "kept");
    Set(preferences, POINT_SIZE, 12); // in range
    Set(preferences, SELECT_COLOR, QColor());
    const CLogCapture log;
    preferences.Apply();
    EXPECT_EQ(Get(preferences, THEME), 0);
    EXPECT_EQ(Get(preferences, KEY_PRESET), 0);
    EXPECT_EQ(Get(preferences, FONT_INCREMENT), -50);
    EXPECT_EQ(Get(preferences, SPLITTER_WIDTH), 1);
    EXPECT_EQ(CMemoryManager::Instance().GetLimit(), 0);
    EXPECT_EQ(preferences.Draw().dMouseSensitivity, 0.06);
    EXPECT_EQ(preferences.Draw().dKeyboardSensitivity, 0.1);
    EXPECT_DOUBLE_EQ(Get(preferences, ANGLE_LIMIT), M_PI);
    EXPECT_EQ(Get(preferences, REMOTE_PORT, 3), 22);
    EXPECT_EQ(Get(preferences, REMOTE_NAME, 3), "kept");
    EXPECT_EQ(preferences.Draw().fPointSize, 12.0F);
    EXPECT_EQ(preferences.Draw().selectColor, QColor(Qt::magenta));
    EXPECT_EQ(log.Lines().size(), 10);
    EXPECT_TRUE(log.Lines().contains("Settings: Remote.3.Port was out of range"));
}

TEST_F(Preferences, AFileThatCanNotBeWrittenWorksForTheSession)
{
    CPreferences preferences;
    Set(preferences, PreferenceKey::POINT_SIZE, 3);
    Save(preferences);
    ASSERT_TRUE(
        QFile::setPermissions(FileName(), QFile::ReadOwner)); // as its owner, or an administrator, may
    Set(preferences, PreferenceKey::POINT_SIZE, 4);
    const CLogCapture log;
    EXPECT_FALSE(preferences.Save(ORGANISATION, Application()));
    EXPECT_EQ(log.Lines(), QStringList({QString("Settings: %1 can't be written").arg(FileName())}));
    EXPECT_EQ(Get(preferences, PreferenceKey::POINT_SIZE), 4);
    CPreferences other;
    Load(other);
    EXPECT_EQ(Get(other, PreferenceKey::POINT_SIZE), 3);

    QFile::setPermissions(FileName(), QFile::ReadOwner | QFile::WriteOwner);
    Save(preferences);
    Load(other);
    EXPECT_EQ(Get(other, PreferenceKey::POINT_SIZE), 4) << "the next save tries again";
}

TEST_F(Preferences, WithoutAFolderForTheFileNothingBreaks)
{
    const QString sFolder = QFileInfo(QFileInfo(FileName()).path()).path();
    QFile inTheWay(sFolder + "/NOVRIK-file");
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    CPreferences preferences;
    preferences.Load("NOVRIK-file", "App");
    EXPECT_FALSE(preferences.Save("NOVRIK-file", "App"));
    inTheWay.remove();
}

TEST_F(Preferences, ALockThatIsNotGivenBackDoesNotHoldUpASaveForLong)
{
    CPreferences preferences;
    Save(preferences);
    QElapsedTimer timer;
    timer.start();
    {
        QLockFile other(FileName() + ".save");
        ASSERT_TRUE(other.lock());
        Save(preferences);
    }
    QLockFile other(FileName() + ".lock"); // the one that QSettings takes
    ASSERT_TRUE(other.lock());
    EXPECT_FALSE(preferences.Save(ORGANISATION, Application()));
    EXPECT_LT(timer.elapsed(), 10000);
}
