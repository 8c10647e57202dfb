#pragma once

#include "scene/colormaprecord.h"
#include "scene/displaytype.h"

#include <QColor>
#include <QMatrix4x4>
#include <QPointF>

#include <span>
#include <variant>

/** What of a drawable has to be built anew. */
namespace Stale {
inline constexpr unsigned NOTHING = 0, GEOMETRY = 1, VALUES = 2, THRESHOLDS = 4, VECTORS = 8, CONTOURS = 16,
                          ALL = 31;
}

/** What of a drawable is shown and how. */
struct SDisplayState
{
    bool bVisible = true;
    bool bForceInvisible = false; ///< hides it whatever bVisible says
    bool bNodeVisible = false;    ///< nodes are drawn as well
    bool bDisplayOnNodes = true;  ///< scalars at nodes, else at cell centres
    bool bShowHoles = true;       ///< blanked cells are left out; off draws and picks them like any cell
    bool bPreview = false;        ///< drawn in the preview colour, and not selectable

    qint64 nDisplayType = DisplayOutline; ///< DisplayType_e; what it draws are the flags
    bool bDrawWireframe = false;
    bool bDrawShaded = false;
    bool bDrawNodes = false;
    bool bDrawOutlines = true;
    bool bDrawContours = false;
    bool bDrawVectors = false;
    qint64 nContourCount = 16;

    bool bGeometricColor = true; ///< the constant colour instead of the colormap
    QColor shadeColor = Qt::gray;
    QColor wireframeColor = Qt::green;
    double dLineThickness = 1.0; ///< [pixels]
    double dAlpha = 1.0;         ///< of the shaded part: 0 invisible, 1 opaque

    // Variables by id; -1 for none.
    qint64 nScalarVariable = -1;
    qint64 nVectorVariable = -1;
    qint64 nThresholdVariable = -1;
    bool bThresholdEnable = false;
    QPointF thresholdRange = {1.0, 0.0}; ///< x: least, y: greatest value that is drawn

    qint64 nVectorPlane = 0; ///< projection: 0 none, 1 XY, 2 XZ, 3 YZ, 4 surface
    qint64 nVectorSkip = 0;  ///< every (n + 1)-th vector in each direction is drawn
    double dVectorHeadScale = 1.0;
    double dVectorBodyScale = 1.0;

    SColormapRecord colormap;
    bool bColormapBindToLocal = false;

    bool bExtended = false; ///< a second copy is drawn, with a matrix of its own
    QMatrix4x4 extensionMatrix;
};

using DisplayMember = std::variant<bool SDisplayState::*, qint64 SDisplayState::*, double SDisplayState::*,
                                   QColor SDisplayState::*, QPointF SDisplayState::*>;

/** How a member is stored. */
enum DisplayForm_e {
    FormValue,    ///< as it is
    FormBytes,    ///< in the bytes alone
    FormVariable, ///< the id of a variable: its name in JSON, its key in the bytes
    FormNone
};

struct SDisplayKey
{
    const char* sKey; ///< member of a drawable's JSON; "" for what has none
    DisplayMember member;
    unsigned nStale = Stale::NOTHING; ///< by a change of it
    DisplayForm_e eForm = FormValue;
};

/** All members but colormap and matrix, in the order of the stored bytes. */
std::span<const SDisplayKey> DisplayKeys();

const SDisplayKey& FindDisplayKey(const DisplayMember& member);
inline const char* DisplayKeyOf(const DisplayMember& member) { return FindDisplayKey(member).sKey; }

/** Members of a drawable's JSON that are no member of its state. */
namespace DisplayJson {
inline constexpr const char *COLORMAP_NAME = "colormapName", *COLORMAP_RANGE = "colormapRange",
                            *LEGEND = "annotationColormap", *TIME_CODE = "timeCode", *MIN_VALUE = "minValue",
                            *MAX_VALUE = "maxValue", *MIN_POINT = "minPoint", *MAX_POINT = "maxPoint";
inline constexpr const char* ALL[] = {COLORMAP_NAME, COLORMAP_RANGE, LEGEND,    TIME_CODE,
                                      MIN_VALUE,     MAX_VALUE,      MIN_POINT, MAX_POINT};
} // namespace DisplayJson
