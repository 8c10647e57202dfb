#include "simulation/displaytransforms.h"

namespace {

constexpr double PI = 3.14159265358979323846;

bool HasSectors(const SSectorSetting& sectors, int nAxis)
{
    return sectors.bActive[nAxis] && sectors.nCount[nAxis] >= 2;
}

STransform Reflection(int nAxis, double dOffset)
{
    DVector3D offset, factors{1.0, 1.0, 1.0};
    offset[nAxis] = dOffset;
    factors[nAxis] = -1.0;
    return STransform(DMatrix4x4::Translation(offset) * DMatrix4x4::Scaling(factors) *
                      DMatrix4x4::Translation(-offset));
}

STransform RotationAbout(const DVector3D& centre, int nAxis, double dAngle)
{
    return STransform(DMatrix4x4::Translation(centre) * DMatrix4x4::Rotation(nAxis, dAngle) *
                      DMatrix4x4::Translation(-centre));
}

/** Appends the first nCount entries once more, each followed by the further transform. */
void AppendCombined(QVector<STransform>& transforms, int nCount, const STransform& further)
{
    for (int n = 0; n < nCount; ++n)
        transforms.append(further * transforms[n]);
}

} // namespace

QString TransformLimitText(double dTransforms)
{
    const QString sText =
        "The requested sector configuration would generate %1 transforms, which exceeds the "
        "safety limit of %2. Reduce the sector count or disable one of the periodic axes.";
    return sText.arg(dTransforms, 0, 'f', 0).arg(MAX_DISPLAY_TRANSFORMS);
}

double CountDisplayTransforms(const SMirrorSetting& mirror, const SSectorSetting& sectors)
{
    double dCount = 1.0;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        if (mirror.bActive[nAxis])
            dCount *= 2.0;
        if (HasSectors(sectors, nAxis))
            dCount *= static_cast<double>(sectors.nCount[nAxis]);
    }
    return dCount;
}

QVector<STransform> BuildDisplayTransforms(const SMirrorSetting& mirror, const SSectorSetting& sectors,
                                           const DVector3D& rotationCentre)
{
    QVector<STransform> transforms = {STransform()};
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (mirror.bActive[nAxis])
            AppendCombined(transforms, transforms.size(), Reflection(nAxis, mirror.dOffset[nAxis]));
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        if (!HasSectors(sectors, nAxis))
            continue;
        const int nBefore = transforms.size();
        const double dSector = 2.0 * PI / static_cast<double>(sectors.nCount[nAxis]);
        for (qint64 k = 1; k < sectors.nCount[nAxis]; ++k)
            AppendCombined(transforms, nBefore, RotationAbout(rotationCentre, nAxis, k * dSector));
    }
    return transforms;
}
