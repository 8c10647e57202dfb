// zento-batch info: what a file is and what its headers say.
#include "app/batch/batch.h"
#include "app/batch/batchoptions.h"
#include "app/batch/commands.h"
#include "app/batch/jsonwriter.h"
#include "app/batch/timings.h"
#include "data/io/gridio.h"
#include "data/io/solutionio.h"

#include <QFileInfo>

#include <cstdio>

namespace {

const char* const SUMMARY =
    "Identifies grid and solution files by their sizes and tells what their headers say, as JSON.";

QVector<SBatchOption> Options()
{
    return {{"--grid", "FILE", true, "read as a grid file"},
            {"--solution", "FILE", true, "read as a solution file"},
            {"--timings", "FILE", false, "writes seconds by stage and the peak of memory as JSON"}};
}

void WriteLayout(CJsonWriter& json, const SFileLayout& layout)
{
    json.BeginObject();
    json.Member("isFormatted", layout.nIsFormatted != 0);
    json.Member("isSwapped", layout.bIsSwapped);
    json.Member("intSize", int(layout.nIntSize));
    json.Member("realSize", int(layout.nRealSize));
    json.Member("markerSize", int(layout.nMarkerSize));
    json.Member("isMultiBlock", layout.bIsMultiBlock);
    json.Member("is3D", layout.bIs3D);
    json.Member("hasBlank", layout.bHasBlank);
    json.EndObject();
}

/** True if the file was identified. */
bool WriteFile(CJsonWriter& json, const QString& sPath, bool bGrid)
{
    const SPlot3DFile file = bGrid ? CGridIO().Detect(sPath) : CSolutionIO().Detect(sPath);
    json.BeginObject();
    json.Member("path", sPath);
    json.Member("role", bGrid ? "grid" : "solution");
    json.Member("formatCode", file.nCode);
    json.Key("kind");
    if (file.IsDetected())
        json.Value("structured");
    else
        json.Null();
    json.Key("layout");
    if (file.IsDetected())
        WriteLayout(json, file.layout);
    else
        json.Null();
    if (!bGrid && file.IsDetected())
        json.Member("variableCount", VariableCount(file));
    if (const auto header = bGrid ? std::nullopt : CSolutionIO().GetSolutionHeader(sPath, 0)) {
        json.Key("header");
        json.BeginArray();
        for (const double dValue : *header)
            json.Value(dValue);
        json.EndArray();
    }
    json.Key("blocks");
    json.BeginArray();
    for (const IVector3D& size : BlockDimensions(file))
        json.Value(size);
    json.EndArray();
    json.EndObject();
    return file.IsDetected();
}

} // namespace

int RunInfo(const QStringList& sArgumentList)
{
    if (sArgumentList.contains("--help"))
        return std::fputs(qPrintable(HelpOf("info", SUMMARY, Options())), stdout), BatchOk;
    CBatchOptions options;
    if (const QString sProblem = options.Parse(sArgumentList, Options()); !sProblem.isEmpty())
        return BatchError(BatchUsage, sProblem);
    if (!options.Has("--grid") && !options.Has("--solution"))
        return BatchError(BatchUsage, "no file is named");
    CTimings timings;
    CJsonWriter json;
    json.BeginObject();
    json.Key("files");
    json.BeginArray();
    QStringList sUnknownList;
    for (const auto& [sName, sPath] : options.InOrder())
        if (sName != "--timings" && !WriteFile(json, sPath, sName == "--grid"))
            sUnknownList << sPath;
    json.EndArray();
    json.EndObject();
    timings.EndStage("detect");
    std::printf("%s\n", json.Text().constData());
    if (options.Has("--timings") && !timings.Write(options.First("--timings")))
        return BatchError(BatchFailed, QString("can't write %1").arg(options.First("--timings")));
    if (!sUnknownList.isEmpty())
        return BatchError(BatchFailed, QString("not identified: %1").arg(sUnknownList.join(", ")));
    return BatchOk;
}
