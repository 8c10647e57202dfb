// Sections that say how all is shown.
#include "modules/plot3d/fieldview/fieldviewlook.h"
#include "modules/plot3d/fieldview/fieldviewsections.h"
#include "modules/plot3d/fieldview/fieldviewvalues.h"

#include <numbers>

namespace {

constexpr int MOST_FILES = 100'000; // of each kind

/** Files, colours, and whatever has no kind of its own. */
class CGeneralSection : public CFieldViewSection
{
public:
    using CFieldViewSection::CFieldViewSection;

    bool Take(const QString& sKey, const QString& sValue) override
    {
        if (sKey == "data_type")
            return TakeFieldView(sValue, m_nDataType);
        if (sKey == "filename")
            return TakeFile(UnquotedFieldView(sValue));
        if (sKey == "dataset_dup_mode")
            return TakeMirror(sValue, m_nDuplication);
        if (sKey == "dataset_dup_mirror_axis")
            return TakeMirror(sValue, m_nMirrorAxis);
        if (sKey == "geom_color")
            return TakeFieldView(sValue, m_restart.nGeometryColor);
        return TakeFieldViewColors(m_restart.colors, sKey, sValue);
    }

private:
    /** Of the kind that the last type said. */
    bool TakeFile(const QString& sFile)
    {
        enum { GRID = 1, Q = 2 };
        QStringList& sFileList = m_nDataType == GRID ? m_restart.sGridFileList
                                 : m_nDataType == Q  ? m_restart.sQFileList
                                                     : m_restart.sFunctionFileList;
        if (sFileList.size() >= MOST_FILES)
            return false;
        sFileList << sFile;
        return true;
    }
    /** Mode and axis come in either order. */
    bool TakeMirror(const QString& sValue, int& nTaken)
    {
        constexpr int MIRRORED = 2;
        const bool bTaken = TakeFieldView(sValue, nTaken);
        const bool bMirrored = m_nDuplication == MIRRORED && m_nMirrorAxis >= 1 && m_nMirrorAxis <= 3;
        m_restart.nMirrorAxis = bMirrored ? m_nMirrorAxis - 1 : -1;
        return bTaken;
    }

    int m_nDataType = 0;
    int m_nDuplication = 0;
    int m_nMirrorAxis = 0; // from 1
};

class CViewSection : public CGeneralSection
{
public:
    using CGeneralSection::CGeneralSection;

    bool Take(const QString& sKey, const QString& sValue) override
    {
        if (sKey == "angle_axis")
            return TakeRotation(FieldViewNumbers(sValue));
        if (sKey == "translation")
            return TakeFieldView(sValue, m_restart.translation);
        if (sKey == "scale")
            return TakeSize(sValue, m_restart.dScale);
        if (sKey == "zoom")
            return TakeSize(sValue, m_restart.dZoom);
        return CGeneralSection::Take(sKey, sValue);
    }

private:
    bool TakeRotation(const QVector<double>& numbers)
    {
        constexpr double FULL_TURN = 2.0 * std::numbers::pi, ROUNDED = 1e-3;
        if (numbers.size() != 4)
            return false;
        // No rotation needs more than a turn: such a number is one of degrees.
        const bool bDegrees = std::abs(numbers[0]) > FULL_TURN + ROUNDED;
        m_restart.dAngle = bDegrees ? numbers[0] / 360.0 * FULL_TURN : numbers[0];
        m_restart.axis = {numbers[1], numbers[2], numbers[3]};
        m_restart.bHasView = true;
        return true;
    }
    bool TakeSize(const QString& sValue, double& dSize)
    {
        double dRead = 0.0;
        if (!TakeFieldView(sValue, dRead) || dRead <= 0.0)
            return false;
        dSize = dRead;
        m_restart.bHasView = true;
        return true;
    }
};

} // namespace

std::unique_ptr<CFieldViewSection> MakeFieldViewSettings(const QString& sName, SFieldViewRestart& restart)
{
    if (sName.startsWith("trans"))
        return std::make_unique<CViewSection>(restart);
    return std::make_unique<CGeneralSection>(restart);
}
