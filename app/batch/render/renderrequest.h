#pragma once

#include "app/batch/batchoptions.h"
#include "data/values/valuerange.h"
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

    QString sCaseFile;    ///< empty: the case is made of data files
    QString sDisplayFile; ///< what the case is to look like; empty: as it was saved, or as a window opens it
    QString sScalar;      ///< empty: in the colours of the items
    QString sVector;
    std::optional<SValueRange> range;  ///< of the colours; nothing: of the scalar in the whole case
    qint32 nColormap = -1;             ///< -1: the default
    std::optional<DisplayType_e> mode; ///< nothing: as stored, else shaded
    QVector<SSurface> surfaces;        ///< empty: what a window shows at first
    std::optional<SView> view;         ///< nothing: the stored camera, else "iso"
    bool bLegend = false;
    bool bAxes = false;
    QColor background; ///< invalid: that of the window
    QSize size;        ///< invalid: that of the stored camera, else 1280 x 960
    int nSamples = 8;
    QString sOutput;

    /** A case file or a display file says what is shown. */
    bool IsStored() const { return !sCaseFile.isEmpty() || !sDisplayFile.isEmpty(); }
};

/** All options of "render". */
QVector<SBatchOption> RenderOptions();

/** @return what is wrong with the options, in one line; empty if nothing is */
QString ParseRenderRequest(const CBatchOptions& options, SRenderRequest& request);
