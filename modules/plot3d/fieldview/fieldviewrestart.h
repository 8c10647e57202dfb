#pragma once

#include "data/values/valuerange.h"
#include "frame/vector3d.h"

#include <QColor>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

// FieldView restart files: text of lines with a key, a colon and a value (docs/formats/fieldview.md). A
// restart is a main file, ".dat", and files of the same name with other endings beside it.

/** How values become colours; what isn't said is that of all. */
struct SFieldViewColors
{
    QString sColormap; ///< the system's own name; empty: not said
    std::optional<bool> bInverted;
    std::optional<bool> bFilled; ///< colours between the contours
    int nContours = 0;           ///< 0: not said
};

/** How an item looks; what the file doesn't say has its value here. */
struct SFieldViewLook
{
    bool bVisible = true;
    int nDisplayType =
        3; ///< 1 grid lines, 2 shaded in one colour, 3 by the scalar, 4 contours, 5 arrows, else outline
    int nColor = 0; ///< in the table of colours; 0: none of it
    double dLineThickness = 1.0;
    double dTransparency = 0.0; ///< 0 opaque to 1
    bool bMesh = false;         ///< grid lines on a shaded surface
    bool bThreshold = false;
    QString sScalar;
    QString sVector;
    QString sThreshold;
    std::optional<SValueRange> scalarRange;
    std::optional<SValueRange> localRange; ///< counts in its place where bUseLocalRange says so
    bool bUseLocalRange = false;
    SFieldViewColors colors;
    std::optional<SValueRange> thresholdRange;
    int nVectorSkip = 0;
    double dVectorLength = 1.0;     ///< 1: arrows of the usual size
    double dVectorHead = 1.0;       ///< 1: heads of the usual size
    double dLargestComponent = 0.0; ///< of the vector in all of the data; 0: not said
    bool bLegend = false;
    std::optional<int> nLegendDigits; ///< behind the decimal point
    std::optional<int> nLegendLabels;
};

/** An index plane of a grid; one-based. */
struct SFieldViewSurface
{
    qint64 nGrid = 1;
    qint64 nLastGrid = 1; ///< the plane is in all from nGrid to this one
    int nDirection = 2;   ///< 0 I, 1 J, 2 K
    std::array<qint64, 3> current = {1, 1, 1};
    /** First and last index in each direction; nothing: all. */
    std::array<std::optional<qint64>, 3> first;
    std::array<std::optional<qint64>, 3> last;
    SFieldViewLook look;
};

/** A plane x, y or z = constant. */
struct SFieldViewPlane
{
    int nAxis = 0;
    DVector3D place;
    SFieldViewLook look;
};

/** A seed at a point of a grid; one-based. */
struct SFieldViewGridSeed
{
    qint64 nGrid = 1;
    IVector3D ijk;
};

/** Where streamlines go from their seeds; the values are stored in display files. */
enum FieldViewDirection_e { DirectionBoth = 0, DirectionForward = 1, DirectionBackward = 2 };

/** Streamlines from seeds. */
struct SFieldViewRake
{
    QVector<DVector3D> seeds;
    QVector<SFieldViewGridSeed> gridSeeds; ///< count where there are no seeds by their place
    FieldViewDirection_e eDirection = DirectionBoth;
    SFieldViewLook look;
};

struct SFieldViewRestart
{
    QStringList sGridFileList;
    QStringList sQFileList;
    QStringList sFunctionFileList;
    int nMirrorAxis = -1; ///< 0 to 2; -1: no mirrored copy

    bool bHasView = false;
    double dAngle = 0.0; ///< of the rotation about the axis [rad]
    DVector3D axis{0.0, 0.0, 1.0};
    DVector3D translation;
    double dScale = 1.0; ///< what a zoom of 1 shows [world units]; the translation is in units of it
    double dZoom = 1.0;

    QMap<int, QColor> colorTable;
    int nGeometryColor = 0;
    SFieldViewColors colors; ///< of what has none of its own
    QVector<SFieldViewSurface> surfaces;
    QVector<SFieldViewPlane> planes;
    QVector<SFieldViewRake> rakes;

    QMap<QString, int> passedOver; ///< lines of each section that weren't understood
};

/** Whether the first 100 lines hold both marks of a main file. */
bool IsFieldViewRestart(const QString& sFileName);

/**
 * Reads the main file and those that go with it. What isn't understood is passed over; of numbers that aren't
 * any, of counts and of places beyond all reason the line counts as absent.
 *
 * @return nothing if the main file can't be read
 */
std::optional<SFieldViewRestart> ReadFieldViewRestart(const QString& sFileName);
