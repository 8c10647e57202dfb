#pragma once

#include "view/annotations/canvas.h"

#include <QPointF>
#include <QRect>
#include <QStringList>
#include <QVector>

/** How the numbers beside a colour bar are written. The values are stored. */
enum LegendFormat_e : qint64 { LegendFloatingPoint = 0, LegendExponential = 1 };

/** One kind of text of a legend. */
struct SLegendText
{
    bool bVisible = true;
    QString sText; ///< empty: the automatic one; unused for the numbers
    QFont font = OverlayFont();
    QColor color = {}; ///< invalid: automatic, what stands out from the background

    friend bool operator==(const SLegendText&, const SLegendText&) = default;
};

/** What the user sets of a legend. */
struct SLegendSettings
{
    static constexpr int MAX_LABELS = 1000;
    static constexpr int MAX_DIGITS = 17;
    static constexpr int MAX_COLORBAR = 10000; ///< [pixels], either way

    SLegendText title;
    SLegendText subtitle;
    SLegendText labels;
    qint64 nLabelCount = 2; ///< numbers beside the bar
    qint64 nFormat = LegendFloatingPoint;
    qint64 nDigits = 3;          ///< behind the decimal point
    QSize colorbarSize{40, 200}; ///< [pixels]

    friend bool operator==(const SLegendSettings&, const SLegendSettings&) = default;
};

/** The texts in force. */
struct SLegendContent
{
    QString sTitle;
    QString sSubtitle;
    QStringList sLabelList; ///< lowest value first; none where numbers are hidden

    friend bool operator==(const SLegendContent&, const SLegendContent&) = default;
};

/** Where everything stands, in pixels of the view. */
struct SLegendLayout
{
    QSize size; ///< of the content, without the frame's margin
    QRect frame;
    QRect colorbar;
    QRect title;
    QRect subtitle;
    QVector<QRect> labels; ///< as sLabelList
};

/** The numbers beside the bar: from x to y of the range, ends included; a single one is the mean. */
QStringList LegendLabels(const SLegendSettings& settings, const QPointF& range);

/** @param position  top left of the content */
SLegendLayout LayoutLegend(const SLegendSettings& settings, const SLegendContent& content,
                           const QPoint& position);
