#include "modules/plot3d/fieldview/fieldviewrestart.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QTextStream>

#include <cmath>

namespace {

constexpr qint64 LARGEST_FILE = 64 << 20; // [bytes]
constexpr int MARK_LINES = 100;
constexpr int MOST_ITEMS = 100'000; // of each kind
constexpr const char *RESTART_MARK = "data_file_restart_version:", *TYPE_MARK = "data_type:";

const QHash<QString, QString>& VariableTable()
{
    static const QHash<QString, QString> names = {
        {"density", "R"},
        {"x momentum", "RU"},
        {"y momentum", "RV"},
        {"z momentum", "RW"},
        {"stagnation energy", "RE"},
        {"u velocity", "U"},
        {"v velocity", "V"},
        {"w velocity", "W"},
        {"velocity magnitude", "Vmag[Q]"},
        {"pressure", "P[Q]"},
        {"temperature", "T[Q]"},
        {"mach number", "M[Q]"},
        {"speed of sound", "C[Q]"},
        {"velocity", "Velocity"},
        {"momentum", "Momentum"},
        {"momentum vectors", "Momentum"},
    };
    return names;
}

/** "Density (Q1)": the arrays of a Q file by their place. */
constexpr std::pair<const char*, const char*> Q_ARRAYS[] = {
    {"(q1)", "R"}, {"(q2)", "RU"}, {"(q3)", "RV"}, {"(q4)", "RW"}, {"(q5)", "RE"}};

constexpr const char* COLORMAPS[] = {"RGB LINEAR", "ZEBRA", "NASA1",  "NASA2",
                                     "Inferno",    "Magma", "Plasma", "Viridis"};

/** By its name, or by its place in the list, from 1. */
QString ColormapOf(const QString& sValue)
{
    for (const char* const sName : COLORMAPS)
        if (sValue.compare(sName, Qt::CaseInsensitive) == 0)
            return sName;
    const int nPlace = sValue.toInt();
    return nPlace >= 1 && nPlace <= int(std::size(COLORMAPS)) ? COLORMAPS[nPlace - 1] : QString();
}

QString Unquoted(const QString& sValue)
{
    const bool bQuoted = sValue.size() >= 2 && sValue.startsWith('"') && sValue.endsWith('"');
    return bQuoted ? sValue.mid(1, sValue.size() - 2) : sValue;
}

/** The numbers of a value; empty if one of them isn't any. */
QVector<double> NumbersOf(const QString& sValue)
{
    QVector<double> numbers;
    for (const QString& sPart : sValue.split(' ', Qt::SkipEmptyParts)) {
        bool bNumber = false;
        numbers.append(sPart.toDouble(&bNumber));
        if (!bNumber || !std::isfinite(numbers.last()))
            return {};
    }
    return numbers;
}

std::optional<SValueRange> RangeOf(const QString& sValue)
{
    const QVector<double> numbers = NumbersOf(sValue);
    if (numbers.size() != 2 || !(numbers[0] <= numbers[1]))
        return {};
    return SValueRange{numbers[0], numbers[1]};
}

void TakeNumber(const QString& sValue, double& dNumber)
{
    if (const QVector<double> numbers = NumbersOf(sValue); numbers.size() == 1)
        dNumber = numbers[0];
}

template <class Int> void TakeInteger(const QString& sValue, Int& nNumber)
{
    bool bNumber = false;
    if (const int n = sValue.toInt(&bNumber); bNumber)
        nNumber = n;
}

void TakeFlag(const QString& sValue, bool& bFlag)
{
    int nFlag = bFlag ? 1 : 0;
    TakeInteger(sValue, nFlag);
    bFlag = nFlag != 0;
}

void TakePoint(const QString& sValue, DVector3D& point)
{
    if (const QVector<double> numbers = NumbersOf(sValue); numbers.size() == 3)
        point = {numbers[0], numbers[1], numbers[2]};
}

/** "*" is nothing: all. */
std::optional<qint64> IndexOf(const QString& sValue)
{
    bool bNumber = false;
    const int nIndex = sValue.toInt(&bNumber);
    return bNumber && nIndex >= 1 ? std::optional<qint64>(nIndex) : std::nullopt;
}

/** Both spellings of the kinds of items. */
void TakeLook(SFieldViewLook& look, const QString& sKey, const QString& sValue)
{
    if (sKey == "visibility" || sKey == "visible_flag")
        TakeFlag(sValue, look.bVisible);
    else if (sKey == "display_type")
        TakeInteger(sValue, look.nDisplayType);
    else if (sKey == "color")
        TakeInteger(sValue, look.nColor);
    else if (sKey == "line_thickness")
        TakeNumber(sValue, look.dLineThickness);
    else if (sKey == "transparency")
        TakeNumber(sValue, look.dTransparency);
    else if (sKey == "show_mesh" || sKey == "show_mesh_flag")
        TakeFlag(sValue, look.bMesh);
    else if (sKey == "thresh_switch" || sKey == "thresh_flag")
        TakeFlag(sValue, look.bThreshold);
    else if (sKey == "scalar_funct" || sKey == "scalar_fn")
        look.sScalar = TranslateFieldViewVariable(Unquoted(sValue));
    else if (sKey == "vector_funct" || sKey == "vector_fn")
        look.sVector = TranslateFieldViewVariable(Unquoted(sValue));
    else if (sKey == "thresh_funct" || sKey == "thresh_fn")
        look.sThreshold = TranslateFieldViewVariable(Unquoted(sValue));
    else if (sKey == "scalar_min_max" || sKey == "scalar_minmax")
        look.scalarRange = RangeOf(sValue);
    else if (sKey == "local_scalar_min_max")
        look.localRange = RangeOf(sValue);
    else if (sKey == "use_local_scalar_minmax")
        TakeFlag(sValue, look.bUseLocalRange);
    else if (sKey == "color_map_type")
        look.sColormap = ColormapOf(Unquoted(sValue));
    else if (sKey == "thresh_min_max" || sKey == "thresh_minmax")
        look.thresholdRange = RangeOf(sValue);
    else if (sKey == "number_of_contours")
        TakeInteger(sValue, look.nContours);
    else if (sKey == "vector_skip_value" || sKey == "vector_skip")
        TakeInteger(sValue, look.nVectorSkip);
    else if (sKey == "vector_len_scale" || sKey == "vec_length_scale")
        TakeNumber(sValue, look.dVectorLength);
    else if (sKey == "vector_head_scale" || sKey == "vec_head_scale")
        TakeNumber(sValue, look.dVectorHead);
}

/** Goes through the lines of a file; each section begins with its version. */
class CTextReader
{
public:
    explicit CTextReader(SFieldViewRestart& restart) : m_restart(restart) {}

    void Take(const QString& sLine)
    {
        static const QRegularExpression colorLine("^(\\d+):\\s+(\\d+)\\s+(\\d+)\\s+(\\d+)");
        if (const QRegularExpressionMatch color = colorLine.match(sLine); color.hasMatch()) {
            const QColor read(color.captured(2).toInt(), color.captured(3).toInt(),
                              color.captured(4).toInt());
            if (read.isValid() && m_restart.colors.size() < MOST_ITEMS)
                m_restart.colors[color.captured(1).toInt()] = read;
            return;
        }
        const int nColon = sLine.indexOf(':');
        if (nColon <= 0)
            return;
        const QString sKey = sLine.left(nColon).trimmed().toLower(), sValue = sLine.mid(nColon + 1).trimmed();
        if (sKey.endsWith("_restart_version") &&
            sKey != "colormap_atts_restart_version") // stands in a surface
            m_eSection = SectionOf(sKey);
        else
            TakeKey(sKey, sValue);
    }

private:
    enum Section_e { SectionOther, SectionView, SectionSurfaces, SectionPlanes, SectionRakes };

    static Section_e SectionOf(const QString& sKey)
    {
        if (sKey.startsWith("comp_surf") || sKey.startsWith("boundary_surf"))
            return SectionSurfaces;
        if (sKey.startsWith("coord_surf"))
            return SectionPlanes;
        if (sKey.startsWith("streamline"))
            return SectionRakes;
        return sKey.startsWith("trans_") ? SectionView : SectionOther;
    }
    void TakeKey(const QString& sKey, const QString& sValue)
    {
        switch (m_eSection) {
        case SectionView:
            return TakeView(sKey, sValue);
        case SectionSurfaces:
            return TakeSurface(sKey, sValue);
        case SectionPlanes:
            return TakePlane(sKey, sValue);
        case SectionRakes:
            return TakeRake(sKey, sValue);
        case SectionOther:
            return TakeGeneral(sKey, sValue);
        }
    }

    void TakeGeneral(const QString& sKey, const QString& sValue)
    {
        if (sKey == "data_type")
            TakeInteger(sValue, m_nDataType);
        else if (sKey == "filename" && m_restart.sGridFileList.size() < MOST_ITEMS)
            FileList() << Unquoted(sValue);
        else if (sKey == "dataset_dup_mode")
            TakeInteger(sValue, m_nDuplication);
        else if (sKey == "dataset_dup_mirror_axis")
            TakeMirror(sValue);
        else if (sKey == "geom_color")
            TakeInteger(sValue, m_restart.nGeometryColor);
        else if (sKey == "color_map_type")
            m_restart.sColormap = ColormapOf(Unquoted(sValue));
    }
    /** Of the kind that the last type said. */
    QStringList& FileList()
    {
        enum { GRID = 1, Q = 2 };
        return m_nDataType == GRID ? m_restart.sGridFileList
               : m_nDataType == Q  ? m_restart.sQFileList
                                   : m_restart.sFunctionFileList;
    }
    void TakeMirror(const QString& sValue)
    {
        constexpr int MIRRORED = 2;
        int nAxis = 0;
        TakeInteger(sValue, nAxis);
        if (m_nDuplication == MIRRORED && nAxis >= 1 && nAxis <= 3)
            m_restart.nMirrorAxis = nAxis - 1;
    }
    void TakeView(const QString& sKey, const QString& sValue)
    {
        const QVector<double> numbers = NumbersOf(sValue);
        if (sKey == "angle_axis" && numbers.size() == 4) {
            m_restart.dAngle = numbers[0];
            m_restart.axis = {numbers[1], numbers[2], numbers[3]};
            m_restart.bHasView = true;
        } else if (sKey == "translation") {
            TakePoint(sValue, m_restart.translation);
        } else if (sKey == "scale" && numbers.size() == 1 && numbers[0] > 0.0) {
            m_restart.dScale = numbers[0];
            m_restart.bHasView = true;
        } else if (sKey == "zoom" && numbers.size() == 1 && numbers[0] > 0.0) {
            m_restart.dZoom = numbers[0];
            m_restart.bHasView = true;
        } else if (sKey == "geom_color" || sKey == "color_map_type") {
            TakeGeneral(sKey, sValue);
        }
    }
    void TakeSurface(const QString& sKey, const QString& sValue)
    {
        if (sKey == "num_of_walls_per_grid") {
            int nWalls = 0;
            TakeInteger(sValue, nWalls);
            ++m_nGrid;
            for (int n = 0; n < nWalls && m_gridOfWall.size() < MOST_ITEMS; ++n)
                m_gridOfWall.append(m_nGrid);
            return;
        }
        QVector<SFieldViewSurface>& surfaces = m_restart.surfaces;
        if (sKey == "dataset" && surfaces.size() < MOST_ITEMS) {
            const qint64 nGrid = m_gridOfWall.value(m_nWall, m_nWall + 1);
            ++m_nWall;
            m_nIndex = 0;
            surfaces.append(SFieldViewSurface());
            surfaces.last().nGrid = surfaces.last().nLastGrid = nGrid;
        }
        if (!surfaces.isEmpty() && m_nWall > 0)
            TakeSurfaceKey(surfaces.last(), sKey, sValue);
    }
    /** The three directions follow each other: first, last, step, current. */
    void TakeSurfaceKey(SFieldViewSurface& surface, const QString& sKey, const QString& sValue)
    {
        const int nAxis = std::min(m_nIndex, 2);
        if (sKey == "start_grid" && IndexOf(sValue)) {
            surface.nGrid = surface.nLastGrid = *IndexOf(sValue);
        } else if (sKey == "end_grid" && IndexOf(sValue)) {
            surface.nLastGrid = std::max(surface.nGrid, *IndexOf(sValue));
        } else if (sKey == "min") {
            surface.first[nAxis] = IndexOf(sValue);
        } else if (sKey == "max") {
            surface.last[nAxis] = IndexOf(sValue);
        } else if (sKey == "curr") {
            surface.current[nAxis] = IndexOf(sValue).value_or(1);
            ++m_nIndex;
        } else if (sKey == "direction_plane") {
            int nPlane = 0;
            TakeInteger(sValue, nPlane);
            if (nPlane >= 1 && nPlane <= 3)
                surface.nDirection = nPlane - 1;
        } else {
            TakeLook(surface.look, sKey, sValue);
        }
    }
    void TakePlane(const QString& sKey, const QString& sValue)
    {
        QVector<SFieldViewPlane>& planes = m_restart.planes;
        if (sKey == "active_axis" && planes.size() < MOST_ITEMS) {
            planes.append(SFieldViewPlane());
            int nAxis = 1;
            TakeInteger(sValue, nAxis);
            planes.last().nAxis = std::clamp(nAxis, 1, 3) - 1;
        }
        if (planes.isEmpty())
            return;
        SFieldViewPlane& plane = planes.last();
        if (sKey == "xcur")
            TakeNumber(sValue, plane.place.x);
        else if (sKey == "ycur")
            TakeNumber(sValue, plane.place.y);
        else if (sKey == "zcur")
            TakeNumber(sValue, plane.place.z);
        else
            TakeLook(plane.look, sKey, sValue);
    }
    void TakeRake(const QString& sKey, const QString& sValue)
    {
        QVector<SFieldViewRake>& rakes = m_restart.rakes;
        if (sKey == "num_seeds" && rakes.size() < MOST_ITEMS)
            rakes.append(SFieldViewRake());
        if (rakes.isEmpty())
            return;
        const QVector<double> numbers = NumbersOf(sValue);
        if (sKey == "seed_xyz" && numbers.size() == 3 && rakes.last().seeds.size() < MOST_ITEMS)
            rakes.last().seeds.append({numbers[0], numbers[1], numbers[2]});
        else
            TakeLook(rakes.last().look, sKey, sValue);
    }

    SFieldViewRestart& m_restart;
    Section_e m_eSection = SectionOther;
    int m_nDataType = 0;
    int m_nDuplication = 0;
    qint64 m_nGrid = 0; // of the last number of walls
    QVector<qint64> m_gridOfWall;
    int m_nWall = 0;  // surfaces begun
    int m_nIndex = 0; // directions read of the last
};

/** Nothing for what isn't a text of reasonable size. */
std::optional<QString> ReadText(const QString& sFileName)
{
    QFile file(sFileName);
    if (!QFileInfo(sFileName).isFile() || file.size() > LARGEST_FILE || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    return bytes.contains('\0') ? std::nullopt : std::optional(QString::fromUtf8(bytes));
}

/** Whether it begins with the version of a section: grids may have the same name but for the ending. */
bool IsCompanion(const QString& sFileName)
{
    constexpr qint64 HEAD = 256; // [bytes]
    QFile file(sFileName);
    return file.open(QIODevice::ReadOnly) && file.read(HEAD).contains("_restart_version:");
}

} // namespace

bool IsFieldViewRestart(const QString& sFileName)
{
    QFile file(sFileName);
    if (!QFileInfo(sFileName).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    bool bRestart = false, bType = false;
    constexpr int LONGEST_LINE = 4096;
    for (int n = 0; n < MARK_LINES && !file.atEnd() && !(bRestart && bType); ++n) {
        const QByteArray line = file.readLine(LONGEST_LINE).trimmed();
        bRestart = bRestart || line.startsWith(RESTART_MARK);
        bType = bType || line.startsWith(TYPE_MARK);
    }
    return bRestart && bType;
}

void ReadFieldViewText(const QString& sText, SFieldViewRestart& restart)
{
    CTextReader reader(restart);
    for (const QStringView sLine : QStringView(sText).split('\n'))
        reader.Take(sLine.trimmed().toString());
}

std::optional<SFieldViewRestart> ReadFieldViewRestart(const QString& sFileName)
{
    const std::optional<QString> main = ReadText(sFileName);
    if (!main)
        return {};
    SFieldViewRestart restart;
    ReadFieldViewText(*main, restart);
    const QFileInfo info(sFileName);
    for (const QFileInfo& file : info.dir().entryInfoList(QDir::Files, QDir::Name))
        if (file.completeBaseName() == info.completeBaseName() && file != info &&
            IsCompanion(file.filePath()))
            if (const auto text = ReadText(file.filePath()))
                ReadFieldViewText(*text, restart);
    return restart;
}

QString TranslateFieldViewVariable(const QString& sName)
{
    constexpr const char* SUFFIX = " [plot3d]";
    const QString sLower = sName.trimmed().toLower();
    for (const auto& [sEnd, sArray] : Q_ARRAYS)
        if (sLower.endsWith(sEnd))
            return sArray;
    if (!sLower.endsWith(SUFFIX))
        return sName.trimmed();
    QString sPlain = sLower.left(sLower.size() - int(qstrlen(SUFFIX))).replace('-', ' ');
    return VariableTable().value(sPlain, sName.trimmed());
}
