#pragma once

#include "app/batch/batchoptions.h"
#include "data/valuerange.h"
#include "scene/displaytype.h"

#include <QColor>
#include <QSize>

#include <optional>

/** What "render" is asked for. */
struct SRenderRequest
{
    static constexpr int MAX_SIZE = 16384; ///< [pixels] of a side
    static constexpr int MAX_SAMPLES = 32;

    /** An index plane of a block; all addresses one-based. */
    struct SSurface
    {
        qint64 nBlock = 1;
        int nDirection = 0; ///< 0 I, 1 J, 2 K
        qint64 nConstant = 1;
    };
    /** From where the case is seen. */
    struct SView
    {
        const char* sName;
        int nAxis; ///< that the user looks along; -1: from -x, -y and +z, with z up
        bool bPositive;
    };

    QString sScalar; ///< empty: in the colours of the items
    QString sVector;
    std::optional<SValueRange> range; ///< of the colours; nothing: of the scalar in the whole case
    qint32 nColormap = -1;            ///< -1: the default
    DisplayType_e eMode = DisplayShaded;
    QVector<SSurface> surfaces; ///< empty: what a window shows at first
    SView view = {"iso", -1, false};
    bool bLegend = false;
    bool bAxes = false;
    QColor background; ///< invalid: that of the window
    QSize size = {1280, 960};
    int nSamples = 8;
    QString sOutput;
};

/** All options of "render". */
QVector<SBatchOption> RenderOptions();

/** @return what is wrong with the options, in one line; empty if nothing is */
QString ParseRenderRequest(const CBatchOptions& options, SRenderRequest& request);
