// zento-batch render, as a script sees it: on a machine with no display but with Xvfb.
#include "cases/display/displayfile.h"
#include "cases/files/casestorage.h"
#include "frame/replacefile.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/simulationmanager.h"
#include "tests/support/files.h"
#include "view/selectables/selectablefactory.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <csignal>

namespace {

/** An X display without the extension that OpenGL needs. */
class CDisplayWithoutOpenGL
{
public:
    CDisplayWithoutOpenGL()
    {
        // It would begin anew between the one look at it and the next, and refuse the second.
        m_server.start("Xvfb", {"-displayfd", "1", "-extension", "GLX", "-nolisten", "tcp", "-noreset"});
        if (m_server.waitForReadyRead(20000))
            m_sName = ':' + QString::fromLatin1(m_server.readLine()).trimmed();
    }
    ~CDisplayWithoutOpenGL()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(CDisplayWithoutOpenGL)

    QString Name() const { return m_sName; }

private:
    QProcess m_server;
    QString m_sName;
};

/** A plane of 4 x 4 cells, one unit each, at K = 1 and K = 2; the node in the middle of both is blanked. */
class Render : public testing::Test
{
protected:
    static constexpr int POINTS = 5;

    Render()
    {
        for (const char* const sName : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR"})
            m_environment.remove(sName);
        QFile file(m_sGrid);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        QDataStream stream(&file);
        stream.setByteOrder(QDataStream::LittleEndian);
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
        stream << qint32(1) << qint32(POINTS) << qint32(POINTS) << qint32(2);
        for (int nArray = 0; nArray < 4; ++nArray)
            for (int n = 0; n < POINTS * POINTS * 2; ++n)
                WritePoint(stream, nArray, n % POINTS, n / POINTS % POINTS, n / POINTS / POINTS);
    }
    static void WritePoint(QDataStream& stream, int nArray, int i, int j, int k)
    {
        const int ijk[] = {i, j, k};
        if (nArray < 3)
            stream << float(ijk[nArray]);
        else
            stream << qint32(i == POINTS / 2 && j == POINTS / 2 ? 0 : 1);
    }

    void SetUp() override
    {
        if (QStandardPaths::findExecutable("Xvfb").isEmpty())
            GTEST_SKIP() << "there is no Xvfb";
    }

    /** Renders from above without smoothing; gives the exit status. */
    int Run(const QStringList& sMore) { return Run(sMore, m_sGrid); }
    int Run(const QStringList& sMore, const QString& sGrid)
    {
        return RunStored(QStringList{"--grid", sGrid, "--view", "-z", "--size", "212x318"} + sMore);
    }
    /** As Run, of a case or a display alone. */
    int RunStored(const QStringList& sOptionList)
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(ZENTO_BATCH,
                      QStringList{"render", "--output", m_sPicture, "--samples", "0"} + sOptionList);
        EXPECT_TRUE(process.waitForFinished(60000));
        m_sErrors = process.readAllStandardError();
        m_picture = QImage(m_sPicture);
        return process.exitCode();
    }
    /** Saves the plane as a case seen from above in 200 x 100 pixels, 8 units high; wireframe, or hidden. */
    void SaveStored(const QString& sCaseFile, const QString& sDisplayFile)
    {
        const CSelectableFactory selectables;
        auto* const pCase = new CPlot3DSimulation(1);
        CSimulationManager::Instance().AddSimulation(pCase, 1);
        CCaseRecords records;
        records.AddFile(m_sGrid);
        ASSERT_EQ(pCase->Load(records), "");
        SCamera camera;
        camera.rect = {0, 0, 200, 100};
        camera.viewCenter = {2.0, 2.0};
        camera.viewSize = {16.0, 8.0};
        pCase->SetCameraData(SStoredCamera(camera).ToBytes());
        ASSERT_TRUE(SaveCase(*pCase, "Plot3D", sCaseFile));
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(1, pCase->GetId()))
            p->setVisible(false);
        ASSERT_TRUE(ReplaceFile(sDisplayFile, MakeDisplayFile(*pCase, 1)));
        CSimulationManager::Instance().RemoveAllViews();
    }
    /** The pixel at a place of the plane; its extent is 200 of the 212 pixels. */
    QColor At(double x, double y) const
    {
        return m_picture.pixelColor(int(106 + 50 * (x - 2)), int(159 - 50 * (y - 2)));
    }
    /** Puts a script in the place of Xvfb. */
    void ReplaceXvfb(const QByteArray& script)
    {
        const QString sFile = Files::Write(m_folder.filePath("Xvfb"), "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(sFile, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_environment.insert("PATH", m_folder.path() + ':' + qEnvironmentVariable("PATH"));
    }

    QTemporaryDir m_folder;
    const QString m_sGrid = m_folder.filePath("plane.xyz");
    const QString m_sPicture = m_folder.filePath("plane.png");
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QString m_sErrors;
    QImage m_picture;
};

} // namespace

TEST_F(Render, ACaseAndADisplayFileShowWhatTheWindowShowed)
{
    const QString sCase = m_folder.filePath("a.zento"), sDisplay = m_folder.filePath("a.disp");
    SaveStored(sCase, sDisplay);
    const QColor background("#102030");
    ASSERT_EQ(RunStored({"--case", sCase, "--background", "#102030"}), 0) << m_sErrors.toStdString();
    ASSERT_EQ(m_picture.size(), QSize(200, 100)) << "that of the window";
    EXPECT_NE(m_picture.pixelColor(85, 40), background) << "the plane is from 75 to 125 and from 25 to 75";
    EXPECT_EQ(m_picture.pixelColor(70, 40), background);
    EXPECT_EQ(m_picture.pixelColor(130, 40), background);
    const QImage asSaved = m_picture;
    ASSERT_EQ(RunStored({"--case", sCase, "--background", "#102030", "--mode", "outline"}), 0);
    EXPECT_EQ(m_picture.pixelColor(85, 40), background) << "what the options say goes first";
    ASSERT_EQ(RunStored({"--case", sCase, "--size", "400x200", "--background", "#102030"}), 0);
    EXPECT_EQ(m_picture.size(), QSize(400, 200));
    EXPECT_EQ(m_picture.pixelColor(170, 80), asSaved.pixelColor(85, 40));
    ASSERT_EQ(
        RunStored({"--case", sCase, "--display", sDisplay, "--size", "20x20", "--background", "#102030"}), 0)
        << m_sErrors.toStdString();
    EXPECT_EQ(m_picture.pixelColor(8, 8), background) << "all is hidden there";

    EXPECT_EQ(RunStored({"--case", sCase, "--grid", m_sGrid}), 2);
    EXPECT_NE(RunStored({"--case", m_sGrid}), 0);
    EXPECT_TRUE(m_sErrors.contains("is no case file of Plot3D data")) << m_sErrors.toStdString();
    EXPECT_NE(RunStored({"--case", sCase, "--display", m_sGrid}), 0);
}

TEST_F(Render, ThePictureHasItsSizeTheSilhouetteTheColoursAndTheHole)
{
    ASSERT_EQ(Run({"--scalar", "X", "--range", "1,3", "--background", "#102030"}), 0)
        << m_sErrors.toStdString();
    EXPECT_EQ(m_sErrors, "");
    ASSERT_EQ(m_picture.size(), QSize(212, 318));
    const QColor background(0x10, 0x20, 0x30);
    const QColor low = At(0.5, 0.5), high = At(3.5, 3.5);
    EXPECT_TRUE(low.blue() > 100 && low.red() < 40) << low.name().toStdString();
    EXPECT_TRUE(high.red() > 100 && high.blue() < 40) << high.name().toStdString();
    EXPECT_EQ(At(0.7, 3.3), low) << "all below the range has one colour";
    EXPECT_EQ(At(2.0, 2.0), background) << "the node is blanked";
    EXPECT_EQ(At(4.07, 2.0), background);
    int nLit = 0;
    for (int y = 0; y < m_picture.height(); ++y)
        for (int x = 0; x < m_picture.width(); ++x)
            nLit += int(m_picture.pixelColor(x, y) != background);
    EXPECT_NEAR(nLit, 13 * 50 * 50, 1000) << "12 cells, and 2 triangles that the node isn't in";
}

TEST_F(Render, APictureWithoutSamplesIsTheSameEachTimeAndThatOfTheFirstFace)
{
    ASSERT_EQ(Run({"--scalar", "Y", "--legend", "--axes"}), 0) << m_sErrors.toStdString();
    const QImage first = m_picture;
    ASSERT_EQ(Run({"--scalar", "Y", "--legend", "--axes"}), 0);
    EXPECT_EQ(m_picture, first);
    ASSERT_EQ(Run({"--scalar", "Y", "--background", "white"}), 0);
    const QImage face = m_picture;
    ASSERT_EQ(Run({"--scalar", "Y", "--background", "white", "--surface", "1:K=1"}), 0);
    EXPECT_EQ(m_picture, face);
    ASSERT_EQ(Run({"--mode", "outline", "--background", "white", "--surface", "1:J=5"}), 0);
    EXPECT_NE(m_picture, face);
}

TEST_F(Render, WrongUsageIsSaidInALineAndNothingIsWritten)
{
    const struct
    {
        QStringList sMore;
        const char* sText;
    } cases[] = {
        {{"--scalar", "hole"}, "there is no variable 'hole', near it: Hole"},
        {{"--surface", "2:K=1"}, "there is no block 2; the grid has 1"},
        {{"--surface", "1:K=3"}, "there is no K = 3 in block 1; it has 1 to 2"},
        {{"--surface", "1:K"}, "is not BLOCK:I=N"},
        {{"--scalar", "X", "--range", "2,1"}, "the lower one first"},
        {{"--scalar", "X", "--colormap", "none"}, "one of NASA1"},
        {{"--mode", "contour"}, "needs a --scalar"},
        {{"--mode", "vector"}, "go together"},
        {{"--legend"}, "need a --scalar"},
        {{"--q", "a.q", "--q", "b.q"}, "name one --q"},
        {{"--q", "--legend"},
         "--q needs FILE, and '--legend' is an option; a file of that name is ./--legend"},
    };
    for (const auto& wrong : cases) {
        EXPECT_EQ(Run(wrong.sMore), 2) << wrong.sMore.join(' ').toStdString();
        EXPECT_TRUE(m_sErrors.contains(wrong.sText)) << m_sErrors.toStdString();
        EXPECT_EQ(m_sErrors.count('\n'), 1);
        EXPECT_FALSE(QFile::exists(m_sPicture));
    }
}

TEST_F(Render, ItsOwnDisplayEndsWithItAndOneThatDoesntStartIsSaid)
{
    m_environment.insert("DISPLAY", ":59999"); // nobody answers
    const QString sPid = m_folder.filePath("pid");
    ReplaceXvfb("echo $$ >" + sPid.toLocal8Bit() + "\nexec " +
                QStandardPaths::findExecutable("Xvfb").toLocal8Bit() + " \"$@\"");
    EXPECT_EQ(Run({"--scalar", "none"}), 2);
    EXPECT_NE(kill(Files::Read(sPid).trimmed().toInt(), 0), 0) << "Xvfb still runs";
    ReplaceXvfb("exit 3");
    EXPECT_EQ(Run({}), 1);
    EXPECT_TRUE(m_sErrors.contains("doesn't start")) << m_sErrors.toStdString();
    m_environment.insert("PATH", "");
    EXPECT_EQ(Run({}), 1);
    EXPECT_TRUE(m_sErrors.contains("install xvfb")) << m_sErrors.toStdString();
    EXPECT_EQ(m_sErrors.count('\n'), 1);
}

TEST_F(Render, OnADisplayWithoutOpenGLItDrawsOnOneOfItsOwn)
{
    ASSERT_EQ(Run({"--scalar", "Y"}), 0) << m_sErrors.toStdString();
    const QImage expected = m_picture;
    ASSERT_TRUE(QFile::remove(m_sPicture));
    CDisplayWithoutOpenGL display;
    ASSERT_FALSE(display.Name().isEmpty());
    m_environment.insert("DISPLAY", display.Name());
    m_environment.insert("__EGL_VENDOR_LIBRARY_DIRS", m_folder.path()); // the other way to OpenGL
    EXPECT_EQ(Run({"--scalar", "Y"}), 0) << m_sErrors.toStdString();
    EXPECT_EQ(m_picture, expected);
}

TEST_F(Render, AFileThatIsNamedLikeAnOptionIsGivenByItsFolder)
{
    QFile::copy(m_sGrid, m_folder.filePath("--q"));
    const QString sFormer = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    EXPECT_EQ(Run({}, "./--q"), 0) << m_sErrors.toStdString();
    EXPECT_EQ(Run({}, "--q"), 2);
    QDir::setCurrent(sFormer);
    EXPECT_TRUE(m_sErrors.contains("--grid needs FILE")) << m_sErrors.toStdString();
}
