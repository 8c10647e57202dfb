// zento-batch render: a picture of a case.
#include "app/batch/render/render.h"

#include "app/batch/batch.h"
#include "app/batch/render/batchprompt.h"
#include "app/batch/render/offscreenview.h"
#include "app/batch/render/rendercase.h"
#include "app/batch/render/virtualdisplay.h"
#include "app/batch/timings.h"
#include "simulation/simulationcases.h"
#include "view/selectables/selectablefactory.h"
#include "view/shadermanager.h"
#include "view/ui/surfaceformat.h"

#include <QApplication>
#include <QSaveFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

const char* const SUMMARY = "Writes a picture of a case as PNG, as a window would show it. Without a display "
                            "it is drawn on a private\n"
                            "virtual one (Xvfb). The user's preferences don't count.";

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

/** Opens, draws and writes; the application object is there. */
int Render(const CBatchOptions& options, const SRenderRequest& request)
{
    CTimings timings;
    if (const QString sProblem = OffscreenView::FindProblem(request.size); !sProblem.isEmpty())
        return BatchError(BatchFailed, sProblem);
    CRenderCase renderCase;
    if (const BatchStatus_e eStatus = renderCase.Open(options); eStatus != BatchOk)
        return BatchError(eStatus, renderCase.GetError());
    if (request.sScalar == "?") {
        for (const QString& sName : renderCase.VariableNames())
            std::printf("%s\n", qPrintable(sName));
        return BatchOk;
    }
    timings.EndStage("open");
    if (const BatchStatus_e eStatus = renderCase.Show(request); eStatus != BatchOk)
        return BatchError(eStatus, renderCase.GetError());
    timings.EndStage("evaluate");
    const QImage image = OffscreenView::Draw(CRenderCase::VIEW, request);
    timings.EndStage("draw");
    if (image.isNull())
        return BatchError(BatchFailed, "nothing could be drawn");
    if (!WritePng(image, request.sOutput))
        return BatchError(BatchFailed, QString("can't write %1").arg(request.sOutput));
    timings.EndStage("write");
    if (options.Has("--timings") && !timings.Write(options.First("--timings")))
        return BatchError(BatchFailed, QString("can't write %1").arg(options.First("--timings")));
    return BatchOk;
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
    if (!HasDisplay())
        if (sProblem = display.Start(); !sProblem.isEmpty())
            return BatchError(BatchFailed, sProblem);
    LeaveDesktopOut();
    QSurfaceFormat::setDefaultFormat(ViewSurfaceFormat(request.nSamples));
    const QTemporaryDir runtimeFolder; // Qt complains where a session has none
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    int nArguments = 1;
    char sName[] = "zento-batch";
    char* arguments[] = {sName, nullptr};
    QApplication application(nArguments, arguments);
    const CBatchPrompt prompt;
    const CShaderScope shaders;
    const CSimulationCases cases;
    const CSelectableFactory selectables;
    return Render(options, request);
}
