// What a frame costs against a plain OpenGL program that draws the same triangles, and against the least that
// could be drawn. Needs a display (Xvfb serves): view_bench [few|many|tiny] [ROUNDS]. Both sides alternate;
// the figures are medians, and what counts are the ratios.
#include "bench/view/plainview.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/offscreencontext.h"
#include "tests/support/testsettings.h"
#include "view/gl/rawmodel.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>

#include <cstdio>
#include <cstring>

namespace {

struct SScene
{
    const char* sName;
    int nBlocks;
    qint64 nSide;
    double dFirstLimit; ///< of the ratios to the plain program
    double dTurnLimit;
};

// The third has next to nothing to draw: what is left is our own work for each drawable. No limit for it.
constexpr SScene SCENES[] = {
    {"few", 8, 129, 1.3, 1.1}, {"many", 2000, 17, 1.5, 1.2}, {"tiny", 2000, 3, 0.0, 0.0}};
constexpr QSize LARGE(1600, 1000), SMALL(64, 64); // the small one costs next to nothing to fill
constexpr double LISTS_LIMIT = 1.1;               // up to which display lists may be the default

void UseDisplayLists(bool bUse)
{
    Set(CPreferences::Instance(), PreferenceKey::USE_DISPLAY_LISTS, bUse);
    CPreferences::Instance().Apply();
}

/** The sides that are compared, over one case. */
class CSides
{
public:
    CSides(COffscreenContext& context, const SScene& scene)
        : m_context(context), m_case(scene.nBlocks, scene.nSide)
    {
        Turn();
    }

    /** The next place of the camera, the same for all. */
    void Turn()
    {
        ++m_nTurn;
        m_plainFrame.view = {};
        m_plainFrame.view.rotate(20.0F + 3.0F * float(m_nTurn), 0.5F, 1.0F, 0.2F);
        const double dAspect = double(m_context.Size().width()) / m_context.Size().height();
        const double dHalf = CViewCase::HALF_WIDTH * 1.5;
        m_plainFrame.projection = {};
        m_plainFrame.projection.ortho(float(-dHalf * dAspect), float(dHalf * dAspect), float(-dHalf),
                                      float(dHalf), -2.5F, 2.5F);
        m_frame.nViewId = CViewCase::VIEW;
        m_frame.view = DMatrix4x4::FromFloat(m_plainFrame.view);
        m_frame.dRight = dHalf * dAspect;
        m_frame.dLeft = -m_frame.dRight;
        m_frame.dTop = dHalf;
        m_frame.dBottom = -dHalf;
        m_frame.viewport = m_context.Size();
    }

    double OurFirstFrame()
    {
        m_case.MakeSurfaces();
        OurFrame(false); // with nothing built: frees what the last ones left
        return OurFrame(true);
    }
    double PlainFirstFrame()
    {
        m_plain.Delete();
        m_plainFrame.fMaximum = SPlainFrame().fMaximum;
        m_plainFrame.nColormap = SPlainFrame().nColormap;
        return Time([&] {
            m_plain.Build(m_case);
            m_plain.Draw(m_plainFrame);
        });
    }
    double OurFrame(bool bCheck)
    {
        m_frame.bCheckDrawables = bCheck;
        return Time([&] { m_context.Renderer().Render(m_frame); });
    }
    double PlainFrame()
    {
        return Time([&] { m_plain.Draw(m_plainFrame); });
    }
    double LeastFrame()
    {
        if (!std::exchange(m_bLeastBuilt, true))
            m_least.Build(m_case);
        return Time([&] { m_least.Draw(m_plainFrame); });
    }

    /** A change of all surfaces and the frame that shows it; the same of the plain program. */
    template <class Change> double OurChange(const Change& change)
    {
        return Time([&] {
            for (const auto& pSurface : m_case.Surfaces())
                change(*pSurface);
            m_frame.bCheckDrawables = true;
            m_context.Renderer().Render(m_frame);
        });
    }
    double PlainScalar(int nField)
    {
        return Time([&] {
            m_plain.SetField(m_case, nField);
            m_plain.Draw(m_plainFrame);
        });
    }
    SPlainFrame& PlainSettings() { return m_plainFrame; }

    qint64 VariableId(int nField) const { return m_case.VariableId(nField); }
    qint64 ValueBytes() const { return 6 * m_case.BlockCount() * m_case.Side() * m_case.Side() * 4; }

    /** Bytes for each vertex on show. Ends the bench if pick trees are there before anything is picked. */
    void PrintBytes()
    {
        OurFrame(true);
        PlainFrame();
        const double dVertices = double(6 * m_case.BlockCount() * m_case.Side() * m_case.Side());
        const SSurfaceMemory shown = OurBytes();
        if (shown.nPickTree != 0)
            qFatal("there are pick trees, and nothing was picked");
        const auto print = [dVertices](const char* sWhat, double dOurs, double dPlain) {
            std::printf("  %-44s %9.1f B  %9.1f B  %7.2f\n", sWhat, dOurs / dVertices, dPlain / dVertices,
                        dOurs / dPlain);
        };
        print("a vertex in main memory", double(shown.nArrays), double(m_plain.ArrayBytes()));
        print("a vertex on the GPU", shown.dGpu, double(m_plain.GpuBytes()));
        for (const auto& pSurface : m_case.Surfaces())
            pSurface->pickTree(); // as a pick of it does
        std::printf("  %-44s %9.1f B\n", "  and in main memory once it has been picked",
                    double(OurBytes().nPickTree) / dVertices);
        m_case.MakeSurfaces();
    }

    /** Share of the pixels that differ by more than rounding between our picture and the plain one. */
    double DifferentPixels()
    {
        PlainFrame();
        const QImage plain = m_context.Image();
        OurFrame(true);
        const QImage ours = m_context.Image();
        qint64 nDifferent = 0;
        for (int y = 0; y < ours.height(); ++y)
            for (int x = 0; x < ours.width(); ++x) {
                const QColor a = ours.pixelColor(x, y), b = plain.pixelColor(x, y);
                nDifferent += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                                  std::abs(a.blue() - b.blue()) >
                              12;
            }
        return double(nDifferent) / (double(ours.width()) * ours.height());
    }

private:
    SSurfaceMemory OurBytes() const
    {
        SSurfaceMemory sum;
        for (const auto& pSurface : m_case.Surfaces()) {
            const SSurfaceMemory one = pSurface->memory();
            sum.nArrays += one.nArrays;
            sum.nPickTree += one.nPickTree;
            sum.dGpu += one.dGpu;
        }
        return sum;
    }

    template <class Work> double Time(const Work& work)
    {
        m_context.Clear();
        glFinish();
        QElapsedTimer timer;
        timer.start();
        work();
        glFinish();
        return double(timer.nsecsElapsed()) * 1e-6;
    }

    COffscreenContext& m_context;
    CViewCase m_case;
    CPlainView m_plain;
    CLeastView m_least;
    bool m_bLeastBuilt = false;
    SPlainFrame m_plainFrame;
    SFrameSettings m_frame;
    int m_nTurn = 0;
};

double Median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

/** Times of one thing on both sides, a pair a round. */
struct SPairs
{
    std::vector<double> ours, others;

    void Add(double dOurs, double dOther)
    {
        ours.push_back(dOurs);
        others.push_back(dOther);
    }
    void Print(const char* sWhat, double dLimit = 0.0) const
    {
        std::vector<double> ratios; // of each pair: what else the machine does hits both of it
        for (std::size_t n = 0; n < ours.size(); ++n)
            ratios.push_back(ours[n] / others[n]);
        const double dRatio = Median(ratios);
        std::printf("  %-44s %9.2f ms %9.2f ms %7.2f", sWhat, Median(ours), Median(others), dRatio);
        if (dLimit > 0.0)
            std::printf("  at most %.1f%s", dLimit, dRatio > dLimit ? "  MISSED" : "");
        std::printf("\n");
        std::fflush(stdout);
    }
};

/** Ends the bench if a change has uploaded something else than it should. */
void RequireUploads(const char* sWhat, qint64 nBefore, qint64 nExpected)
{
    const qint64 nBytes = CRawModel::UploadedBytes() - nBefore;
    if (nBytes != nExpected)
        qFatal("%s: %lld bytes uploaded in place of %lld", sWhat, nBytes, nExpected);
}

void MeasureFirst(CSides& sides, const SScene& scene, int nRounds)
{
    SPairs first;
    for (int n = 0; n <= nRounds; ++n) {
        const double dOurs = sides.OurFirstFrame(), dPlain = sides.PlainFirstFrame();
        if (n > 0) // the first round warms up
            first.Add(dOurs, dPlain);
    }
    first.Print("first frame", scene.dFirstLimit);
}

void MeasureTurns(CSides& sides, const SScene& scene, int nRounds)
{
    SPairs turned, checked, least, plainLeast;
    for (int n = 0; n < 3 * nRounds; ++n) {
        sides.Turn();
        turned.Add(sides.OurFrame(false), sides.PlainFrame());
        checked.Add(sides.OurFrame(true), turned.others.back());
        least.Add(turned.ours.back(), sides.LeastFrame());
        plainLeast.Add(turned.others.back(), least.others.back());
    }
    turned.Print("camera turned", scene.dTurnLimit);
    checked.Print("any other frame, nothing to build", scene.dTurnLimit);
    least.Print("camera turned, against the least");
    plainLeast.Print("  (the plain program against the least)");
}

void MeasureChanges(CSides& sides, int nRounds)
{
    SPairs range, colormap, scalar;
    for (int n = 0; n < nRounds; ++n) {
        const double dMaximum = 2.0 + 0.1 * (n % 2);
        sides.PlainSettings().fMaximum = float(dMaximum);
        const qint64 nBefore = CRawModel::UploadedBytes();
        range.Add(sides.OurChange([&](CSurface& surface) { surface.setColormapValues(0.0, dMaximum); }),
                  sides.PlainFrame());
        sides.PlainSettings().nColormap = 1 + n % 2;
        colormap.Add(sides.OurChange([&](CSurface& surface) { surface.setColormapType(1 + n % 2); }),
                     sides.PlainFrame());
        RequireUploads("range and colormap", nBefore, 0);
        const int nField = 1 - n % 2;
        scalar.Add(sides.OurChange([nId = sides.VariableId(nField)](CSurface& surface) {
            surface.setScalarVariable(nId);
        }),
                   sides.PlainScalar(nField));
        RequireUploads("scalar", nBefore, sides.ValueBytes());
    }
    range.Print("range changed: no vertex data touched");
    colormap.Print("colormap changed: no vertex data touched");
    scalar.Print("scalar changed: only values uploaded");
}

/** Display lists in the place of ours, buffers in that of the plain program. */
void MeasureLists(CSides& sides, int nRounds)
{
    SPairs first, turned;
    std::vector<double> turnedBuffers;
    for (int n = 0; n < nRounds; ++n) {
        UseDisplayLists(true);
        const double dLists = sides.OurFirstFrame();
        for (int nFrame = 0; nFrame < 3; ++nFrame)
            turned.ours.push_back(sides.OurFrame(false));
        UseDisplayLists(false);
        first.Add(dLists, sides.OurFirstFrame());
        for (int nFrame = 0; nFrame < 3; ++nFrame)
            turned.others.push_back(sides.OurFrame(false));
        sides.Turn();
    }
    first.Print("display lists against buffers: first frame", LISTS_LIMIT);
    turned.Print("display lists against buffers: camera turned", LISTS_LIMIT);
}

void Measure(COffscreenContext& context, const SScene& scene, int nRounds)
{
    UseDisplayLists(false);
    context.SetSize(LARGE);
    CSides sides(context, scene);
    for (const QSize& size : {LARGE, SMALL}) {
        context.SetSize(size);
        sides.Turn();
        std::printf("\n%d blocks of %lld^3, %d faces, %d x %d pixels\n  %-44s %12s %12s %7s\n", scene.nBlocks,
                    scene.nSide, 6 * scene.nBlocks, size.width(), size.height(), "", "ours", "other",
                    "ratio");
        MeasureFirst(sides, scene, nRounds);
        std::printf("  %-44s %9.4f %%\n", "pixels unlike those of the plain program",
                    100.0 * sides.DifferentPixels());
        sides.PrintBytes();
        sides.OurFirstFrame();
        MeasureTurns(sides, scene, nRounds);
        MeasureChanges(sides, nRounds);
        MeasureLists(sides, nRounds);
    }
}

qint64 ResidentBytes()
{
    QFile file("/proc/self/statm");
    file.open(QIODevice::ReadOnly);
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}

/** In a process of its own: bytes that a first and a turned frame have added. */
void PrintMemory(COffscreenContext& context, const SScene& scene, bool bLists)
{
    UseDisplayLists(bLists);
    context.SetSize(SMALL);
    CSides sides(context, scene);
    const qint64 nBefore = ResidentBytes();
    sides.OurFirstFrame();
    sides.OurFrame(false);
    std::printf("memory %lld\n", ResidentBytes() - nBefore);
}

void CompareMemory(const SScene& scene)
{
    double dBytes[2] = {};
    for (const bool bLists : {false, true}) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {scene.sName, bLists ? "memory-lists" : "memory-buffers"});
        process.waitForFinished(-1);
        dBytes[bLists] = process.readAllStandardOutput().split(' ').last().toDouble();
    }
    std::printf("\n  memory of %s: display lists %.0f MB, buffers %.0f MB, ratio %.2f  at most %.1f\n",
                scene.sName, dBytes[1] * 1e-6, dBytes[0] * 1e-6, dBytes[1] / dBytes[0], LISTS_LIMIT);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const CTestSettings settings;
    COffscreenContext context;
    if (!context.IsValid())
        qFatal("no OpenGL context");
    std::printf("%s\n", reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
    const QString sScene = argc > 1 ? argv[1] : "", sWhat = argc > 2 ? argv[2] : "";
    for (const SScene& scene : SCENES) {
        if (!sScene.isEmpty() && sScene != scene.sName)
            continue;
        if (sWhat.startsWith("memory")) {
            PrintMemory(context, scene, sWhat == "memory-lists");
            continue;
        }
        Measure(context, scene, sWhat.isEmpty() ? 5 : sWhat.toInt());
        CompareMemory(scene);
    }
}
