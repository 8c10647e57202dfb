#pragma once

#include "data/valuerange.h"
#include "frame/vector3d.h"

#include <QColor>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

// FieldView restart files: text of lines with a key, a colon and a value (docs/formats/fieldview.md). A
// restart is a main file, ".dat", and files of the same name with other endings beside it.

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
    QString sColormap; ///< the system's own name; empty: that of all
    std::optional<SValueRange> thresholdRange;
    int nContours = 0; ///< 0: not said
    int nVectorSkip = 0;
    double dVectorLength = 1.0;
    double dVectorHead = 1.0;
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

/** Streamlines from seeds. */
struct SFieldViewRake
{
    QVector<DVector3D> seeds;
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

    QMap<int, QColor> colors;
    int nGeometryColor = 0;
    QString sColormap; ///< the system's own name; empty: not said
    QVector<SFieldViewSurface> surfaces;
    QVector<SFieldViewPlane> planes;
    QVector<SFieldViewRake> rakes;
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

/** One file's text, into what the others have said. */
void ReadFieldViewText(const QString& sText, SFieldViewRestart& restart);

/** The system's name of a variable of the file. */
QString TranslateFieldViewVariable(const QString& sName);
