#include "app/batch/render/renderrequest.h"

#include "app/batch/batchcase.h"
#include "view/colormaps/colormaptables.h"

#include <QRegularExpression>

#include <cmath>

namespace {

struct SMode
{
    const char* sName;
    DisplayType_e eType;
};

constexpr SMode MODES[] = {
    {"outline", DisplayOutline}, {"wireframe", DisplayWireframe},
    {"shaded", DisplayShaded},   {"shaded-wireframe", DisplayShadedWireframe},
    {"contour", DisplayContour}, {"nodes", DisplayNodes},
    {"vector", DisplayVector},
};

constexpr SRenderRequest::SView VIEWS[] = {
    {"+x", 0, true}, {"-x", 0, false}, {"+y", 1, true},    {"-y", 1, false},
    {"+z", 2, true}, {"-z", 2, false}, {"iso", -1, false},
};

template <class Row, std::size_t N> QString Names(const Row (&rows)[N])
{
    QStringList sNameList;
    for (const Row& row : rows)
        sNameList << row.sName;
    return sNameList.join(", ");
}

/** The row of that name, or null. */
template <class Row, std::size_t N> const Row* FindRow(const Row (&rows)[N], const QString& sName)
{
    const auto* const pRow =
        std::find_if(std::begin(rows), std::end(rows), [&](const Row& row) { return sName == row.sName; });
    return pRow == std::end(rows) ? nullptr : pRow;
}

// Each takes the argument of its option; false if it isn't valid.

bool TakeCase(SRenderRequest& request, const QString& sText)
{
    request.sCaseFile = sText;
    return !sText.isEmpty();
}

bool TakeDisplay(SRenderRequest& request, const QString& sText)
{
    request.sDisplayFile = sText;
    return !sText.isEmpty();
}

bool TakeScalar(SRenderRequest& request, const QString& sText)
{
    request.sScalar = sText;
    return !sText.isEmpty();
}

bool TakeVector(SRenderRequest& request, const QString& sText)
{
    request.sVector = sText;
    return !sText.isEmpty();
}

bool TakeRange(SRenderRequest& request, const QString& sText)
{
    const QStringList sPartList = sText.split(',');
    bool bMinimum = false, bMaximum = false;
    const double dMin = sPartList.value(0).trimmed().toDouble(&bMinimum);
    const double dMax = sPartList.value(1).trimmed().toDouble(&bMaximum);
    request.range = SValueRange{dMin, dMax};
    return bMinimum && bMaximum && sPartList.size() == 2 && std::isfinite(dMax - dMin) && dMin <= dMax;
}

bool TakeColormap(SRenderRequest& request, const QString& sText)
{
    for (const QString& sName : ColormapNames())
        if (sName.compare(sText, Qt::CaseInsensitive) == 0)
            request.nColormap = ColormapId(sName);
    return request.nColormap != -1;
}

bool TakeMode(SRenderRequest& request, const QString& sText)
{
    const SMode* const pMode = FindRow(MODES, sText);
    if (pMode)
        request.mode = pMode->eType;
    return pMode;
}

bool TakeSurface(SRenderRequest& request, const QString& sText)
{
    static const QRegularExpression form("^(\\d{1,18}):([IJKijk])=(\\d{1,18})$");
    const QRegularExpressionMatch match = form.match(sText);
    if (!match.hasMatch())
        return false;
    request.surfaces.append({match.captured(1).toLongLong(),
                             int(QString("IJK").indexOf(match.captured(2).toUpper())),
                             match.captured(3).toLongLong()});
    return true;
}

bool TakeView(SRenderRequest& request, const QString& sText)
{
    const SRenderRequest::SView* const pView = FindRow(VIEWS, sText);
    if (pView)
        request.view = *pView;
    return pView;
}

bool TakeLegend(SRenderRequest& request, const QString&) { return request.bLegend = true; }
bool TakeAxes(SRenderRequest& request, const QString&) { return request.bAxes = true; }

bool TakeBackground(SRenderRequest& request, const QString& sText)
{
    request.background = QColor(sText);
    return request.background.isValid();
}

bool TakeSize(SRenderRequest& request, const QString& sText)
{
    static const QRegularExpression form("^(\\d{1,5})x(\\d{1,5})$");
    const QRegularExpressionMatch match = form.match(sText);
    request.size = {match.captured(1).toInt(), match.captured(2).toInt()};
    const auto fits = [](int n) { return n >= 1 && n <= SRenderRequest::MAX_SIZE; };
    return match.hasMatch() && fits(request.size.width()) && fits(request.size.height());
}

bool TakeSamples(SRenderRequest& request, const QString& sText)
{
    bool bNumber = false;
    request.nSamples = sText.toInt(&bNumber);
    return bNumber && request.nSamples >= 0 && request.nSamples <= SRenderRequest::MAX_SAMPLES;
}

bool TakeOutput(SRenderRequest& request, const QString& sText)
{
    request.sOutput = sText;
    return !sText.isEmpty();
}

struct SRenderOption
{
    SBatchOption option;
    bool (*Take)(SRenderRequest& request, const QString& sText);
    QString sExpected; ///< what the argument has to be
};

const QVector<SRenderOption>& OptionTable()
{
    static const QVector<SRenderOption> options = {
        {{"--case", "FILE", false, "case file to show as it was saved, in place of --grid"},
         TakeCase,
         "a file name"},
        {{"--display", "FILE", false, "display file to show the case by"}, TakeDisplay, "a file name"},
        {{"--scalar", "NAME", false, "variable that colours the items; ? lists the names"},
         TakeScalar,
         "a name"},
        {{"--range", "A,B", false, "values with the first and last colour; without: all of the scalar"},
         TakeRange,
         "two numbers, the lower one first"},
        {{"--colormap", "NAME", false, "colours of the scalar (RGB LINEAR)"},
         TakeColormap,
         "one of " + ColormapNames().join(", ")},
        {{"--mode", "MODE", false,
          "outline, wireframe, shaded, shaded-wireframe, contour, nodes or vector (as saved, else shaded)"},
         TakeMode,
         "one of " + Names(MODES)},
        {{"--vector", "NAME", false, "variable of the arrows, with --mode vector"}, TakeVector, "a name"},
        {{"--surface", "B:K=N", true,
          "plane I, J or K = N of block B instead of the faces and boundaries that are shown at first"},
         TakeSurface,
         "BLOCK:I=N, BLOCK:J=N or BLOCK:K=N"},
        {{"--view", "VIEW", false,
          "axis to look along: +x, -x, +y, -y, +z or -z; or iso (as saved, else iso)"},
         TakeView,
         "one of " + Names(VIEWS)},
        {{"--legend", nullptr, false, "with the legend of the scalar"}, TakeLegend, ""},
        {{"--axes", nullptr, false, "with the directions of the axes"}, TakeAxes, ""},
        {{"--background", "COLOR", false, "a name or #rrggbb; without: as in the window"},
         TakeBackground,
         "a colour's name or #rrggbb"},
        {{"--size", "WxH", false, "pixels (as saved, else 1280x960)"},
         TakeSize,
         QString("WIDTHxHEIGHT, each from 1 to %1").arg(SRenderRequest::MAX_SIZE)},
        {{"--samples", "N", false, "for each pixel, to smooth edges; 0: no smoothing (8)"},
         TakeSamples,
         QString("a number from 0 to %1").arg(SRenderRequest::MAX_SAMPLES)},
        {{"--output", "FILE", false, "picture to write, as PNG"}, TakeOutput, "a file name"},
    };
    return options;
}

/** What an option needs beside itself. */
QString CheckTogether(const SRenderRequest& request)
{
    if (request.sScalar == "?")
        return {};
    if (request.sOutput.isEmpty())
        return "--output is missing";
    const bool bScalar = !request.sScalar.isEmpty();
    if (!bScalar && (request.range || request.bLegend || request.nColormap != -1))
        return "--range, --colormap and --legend need a --scalar";
    if (!bScalar && request.mode == DisplayContour && !request.IsStored())
        return "--mode contour needs a --scalar";
    if ((request.mode == DisplayVector) == request.sVector.isEmpty())
        return "--mode vector and --vector go together";
    return {};
}

} // namespace

QVector<SBatchOption> RenderOptions()
{
    QVector<SBatchOption> options;
    for (const SBatchOption& option : CaseOptions())
        if (option.sName != QString("--variable") && option.sName != QString("--block"))
            options.append(option);
    for (const SRenderOption& row : OptionTable())
        options.append(row.option);
    return options;
}

QString ParseRenderRequest(const CBatchOptions& options, SRenderRequest& request)
{
    if (!options.Has("--grid") && !options.Has("--case"))
        return "--grid or --case is missing";
    for (const char* const sOption : {"--grid", "--q", "--function"})
        if (options.Has("--case") && options.Has(sOption))
            return QString("%1 and --case exclude each other: a case file names its data").arg(sOption);
    if (options.All("--q").size() > 1)
        return "a picture shows one level: name one --q";
    for (const SRenderOption& row : OptionTable())
        for (const QString& sText : options.All(row.option.sName))
            if (!row.Take(request, sText))
                return QString("%1 '%2' is not %3").arg(row.option.sName, sText, row.sExpected);
    return CheckTogether(request);
}
