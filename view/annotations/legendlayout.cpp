#include "view/annotations/legendlayout.h"

#include <QFontMetrics>

namespace {

// [pixels]
constexpr int TEXT_GAP = 8;     // below title and subtitle
constexpr int LABEL_GAP = 5;    // between bar and numbers
constexpr int LABEL_MARGIN = 3; // behind a number
constexpr int FRAME_MARGIN = 5;

/** A line of text ahead of the bar. */
struct SLine
{
    int nHeight = 0;
    int nGap = 0;
    int nWidth = 0;
    int Total() const { return nHeight + nGap; }
};

SLine Measure(const SLegendText& text, const QString& sText)
{
    if (!text.bVisible)
        return {};
    const QFontMetrics metrics(text.font);
    return {metrics.height(), TEXT_GAP, metrics.horizontalAdvance(sText)};
}

/** Width of the column of numbers. */
int LabelWidth(const SLegendSettings& settings, const QStringList& sLabelList)
{
    const QFontMetrics metrics(settings.labels.font);
    int nWidth = 0;
    for (const QString& sLabel : sLabelList)
        nWidth = std::max(nWidth, metrics.horizontalAdvance(sLabel) + LABEL_MARGIN);
    return nWidth;
}

/** Place n of nCount from the first value to the last; the middle where there is only one. */
double Place(int n, int nCount, double dFirst, double dLast)
{
    return nCount == 1 ? (dFirst + dLast) * 0.5 : double(n) / (nCount - 1) * (dLast - dFirst) + dFirst;
}

} // namespace

QStringList LegendLabels(const SLegendSettings& settings, const QPointF& range)
{
    const char cFormat = settings.nFormat == LegendExponential ? 'E' : 'f';
    QStringList sLabelList;
    const int nCount = settings.labels.bVisible ? int(settings.nLabelCount) : 0;
    for (int n = 0; n < nCount; ++n)
        sLabelList.append(
            QString::number(Place(n, nCount, range.x(), range.y()), cFormat, int(settings.nDigits)));
    return sLabelList;
}

SLegendLayout LayoutLegend(const SLegendSettings& settings, const SLegendContent& content,
                           const QPoint& position)
{
    const SLine title = Measure(settings.title, content.sTitle);
    const SLine subtitle = Measure(settings.subtitle, content.sSubtitle);
    const int nLabelHeight = settings.labels.bVisible ? QFontMetrics(settings.labels.font).height() : 0;
    const int nLabelGap = settings.labels.bVisible ? LABEL_GAP : 0;
    const int nLabelWidth = LabelWidth(settings, content.sLabelList);
    const int nAhead = title.Total() + subtitle.Total();
    const QSize bar = settings.colorbarSize;

    SLegendLayout layout;
    layout.size = {std::max({title.nWidth, subtitle.nWidth, bar.width() + nLabelWidth + nLabelGap}),
                   nLabelHeight / 2 + bar.height() + nAhead};
    layout.title = {position, QSize(layout.size.width(), title.nHeight)};
    layout.subtitle = {position + QPoint(0, title.Total()), QSize(layout.size.width(), subtitle.nHeight)};
    layout.colorbar = {position + QPoint(0, nAhead), bar};
    layout.frame =
        QRect(position, layout.size).adjusted(-FRAME_MARGIN, -FRAME_MARGIN, FRAME_MARGIN, FRAME_MARGIN);

    const int nTop = position.y() - nLabelHeight / 2 + nAhead;
    const int nBottom = nTop + bar.height();
    const int nX = position.x() + bar.width() + nLabelGap;
    const int nCount = content.sLabelList.size();
    for (int n = 0; n < nCount; ++n)
        layout.labels.append(
            {nX, int(Place(n, nCount, nBottom, nTop)), nLabelWidth + LABEL_MARGIN, nLabelHeight});
    return layout;
}
