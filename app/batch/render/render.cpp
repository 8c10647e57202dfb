// zento-batch render: a picture of a case.
#include "app/batch/render/render.h"

#include "app/batch/batch.h"
#include "app/batch/becomeprogram.h"
#include "app/batch/render/batchprompt.h"
#include "app/batch/render/offscreenview.h"
#include "app/batch/render/rendercase.h"
#include "app/batch/render/virtualdisplay.h"
#include "app/batch/timings.h"
#include "data/io/filefaults.h"
#include "frame/moduleregistry.h"
#include "simulation/simulationcases.h"
#include "view/gl/shadermanager.h"
#include "view/selectables/selectablefactory.h"
#include "view/ui/surfaceformat.h"

#include <QApplication>
#include <QSaveFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

const char* const SUMMARY = "Writes a picture of a case as PNG, as a window would show it. Without a display "
                            "that has OpenGL it is\n"
                            "drawn on a private virtual one (Xvfb). The user's preferences don't count.";

/** The programs of the views while this lives; the application object has to outlive it. */
class CShaderScope
{
public:
    CShaderScope() { CShaderManager::Instance().CreatePrograms(); }
    ~CShaderScope() { CShaderManager::Instance().DeletePrograms(); }
    CShaderScope(const CShaderScope&) = delete;
    CShaderScope& operator=(const CShaderScope&) = delete;
};

/** What would make pictures of the same case differ from desktop to desktop. */
void LeaveDesktopOut()
{
    for (const char* const sName :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_STYLE_OVERRIDE"})
        qunsetenv(sName);
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_QPA_PLATFORMTHEME", "none");
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
}

bool WritePng(const QImage& image, const QString& sFileName)
{
    QSaveFile file(sFileName);
    return file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.commit();
}

constexpr int NO_OPENGL = -1; // not yet said

/** As asked for, as the camera was stored, or the usual one. */
QSize PictureSize(const SRenderRequest& request, const std::optional<SCamera>& stored)
{
    constexpr QSize USUAL = {1280, 960};
    if (request.size.isValid())
        return request.size;
    return stored && !request.view && !stored->rect.isEmpty() ? stored->rect.size() : USUAL;
}

/** Opens, draws and writes; the application object is there. */
int Render(const CBatchOptions& options, SRenderRequest request)
{
    CTimings timings;
    const int nLongest = OffscreenView::LongestSide();
    if (nLongest == 0)
        return NO_OPENGL;
    CModuleRegistry::Instance().CreateModules();
    CRenderCase renderCase;
    if (const BatchStatus_e eStatus = renderCase.Open(options, request); eStatus != BatchOk)
        return BatchError(eStatus, renderCase.GetError());
    if (request.sScalar == "?") {
        for (const QString& sName : renderCase.VariableNames())
            std::printf("%s\n", qPrintable(sName));
        return BatchOk;
    }
    request.size = PictureSize(request, renderCase.GetCamera());
    if (std::max(request.size.width(), request.size.height()) > nLongest)
        return BatchError(BatchFailed,
                          QString("the OpenGL of display %1 draws pictures of at most %2x%2 pixels")
                              .arg(qEnvironmentVariable("DISPLAY"))
                              .arg(nLongest));
    timings.EndStage("open");
    if (const BatchStatus_e eStatus = renderCase.Show(request); eStatus != BatchOk)
        return BatchError(eStatus, renderCase.GetError());
    timings.EndStage("evaluate");
    const QImage image = OffscreenView::Draw(CRenderCase::VIEW, request, renderCase.GetCamera());
    timings.EndStage("draw");
    if (const QString sFault = FileFaults::Last(); !sFault.isEmpty())
        return BatchError(BatchFailed, sFault); // the picture would lack a part of the case
    if (image.isNull())
        return BatchError(BatchFailed, "nothing could be drawn");
    if (!WritePng(image, request.sOutput))
        return BatchError(BatchFailed, QString("can't write %1").arg(request.sOutput));
    timings.EndStage("write");
    if (options.Has("--timings") && !timings.Write(options.First("--timings")))
        return BatchError(BatchFailed, QString("can't write %1").arg(options.First("--timings")));
    return BatchOk;
}

/** On the display that the environment names; a BatchStatus_e, or NO_OPENGL. */
int RenderOnDisplay(const CBatchOptions& options, const SRenderRequest& request)
{
    LeaveDesktopOut();
    QSurfaceFormat::setDefaultFormat(ViewSurfaceFormat(request.nSamples));
    const QTemporaryDir runtimeFolder; // Qt complains where a session has none
    const bool bOwnFolder = qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR");
    if (bOwnFolder)
        qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    int nArguments = 1;
    char sName[] = "zento-batch";
    char* arguments[] = {sName, nullptr};
    const QApplication application(nArguments, arguments);
    const CBatchPrompt prompt;
    const CShaderScope shaders;
    const CSimulationCases cases;
    const CSelectableFactory selectables;
    const int nStatus = Render(options, request);
    if (bOwnFolder)
        qunsetenv("XDG_RUNTIME_DIR");
    return nStatus;
}

/** Once more from the start, without the display. */
int RenderWithoutDisplay(const QStringList& sArgumentList)
{
    qunsetenv("DISPLAY");
    BecomeProgram("/proc/self/exe", sArgumentList);
    return BatchError(BatchFailed, "can't start again");
}

} // namespace

int RunRenderHere(const QStringList& sArgumentList)
{
    if (sArgumentList.contains("--help")) {
        std::fputs(qPrintable(HelpOf("render", SUMMARY, RenderOptions())), stdout);
        return BatchOk;
    }
    CBatchOptions options;
    SRenderRequest request;
    QString sProblem = options.Parse(sArgumentList, RenderOptions());
    if (sProblem.isEmpty())
        sProblem = ParseRenderRequest(options, request);
    if (!sProblem.isEmpty())
        return BatchError(BatchUsage, sProblem);
    CVirtualDisplay display;
    const bool bOwnDisplay = !HasDisplay();
    if (bOwnDisplay)
        if (sProblem = display.Start(); !sProblem.isEmpty())
            return BatchError(BatchFailed, sProblem);
    const int nStatus = RenderOnDisplay(options, request);
    if (nStatus != NO_OPENGL)
        return nStatus;
    return bOwnDisplay ? BatchError(BatchFailed, "there is no OpenGL, not even on a display of its own")
                       : RenderWithoutDisplay(sArgumentList);
}
