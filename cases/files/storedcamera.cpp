#include "cases/files/storedcamera.h"

#include "frame/packs/bytestream.h"

#include <QJsonArray>

#include <array>
#include <cfloat>
#include <cmath>

namespace {

constexpr const char *CAMERA = "camera", *ROTATION_POINT = "rotationPoint", *PROJECTION = "projectionMatrix",
                     *VIEW = "viewMatrix", *RECT = "rect", *CENTER = "viewCenter", *SIZE = "viewSize";
constexpr int MATRIX_SIZE = 16;
constexpr qint64 MOST_PIXELS = 100000000; // further away no widget can be

using Matrix = std::array<double, MATRIX_SIZE>; // row by row

Matrix ToNumbers(const QMatrix4x4& matrix)
{
    Matrix numbers;
    for (int n = 0; n < MATRIX_SIZE; ++n)
        numbers[n] = double(matrix(n / 4, n % 4));
    return numbers;
}

bool IsFloat(double dValue) { return std::abs(dValue) <= double(FLT_MAX); } // false for nan too

/** False, without a change, for numbers that are no floats. */
bool ToMatrix(const Matrix& numbers, QMatrix4x4& matrix)
{
    if (!std::all_of(numbers.begin(), numbers.end(), IsFloat))
        return false;
    for (int n = 0; n < MATRIX_SIZE; ++n)
        matrix(n / 4, n % 4) = float(numbers[n]);
    return true;
}

bool IsUsable(const SCamera& camera)
{
    const bool bFinite = std::isfinite(camera.viewCenter.x()) && std::isfinite(camera.viewCenter.y()) &&
                         std::isfinite(camera.rotationPoint.x) && std::isfinite(camera.rotationPoint.y) &&
                         std::isfinite(camera.rotationPoint.z);
    return bFinite && camera.viewSize.width() > 0.0 && camera.viewSize.height() > 0.0 &&
           std::isfinite(camera.viewSize.width()) && std::isfinite(camera.viewSize.height());
}

void WriteMatrix(CByteWriter& writer, const QMatrix4x4& matrix)
{
    const Matrix numbers = ToNumbers(matrix);
    writer.WriteWords(numbers.data(), MATRIX_SIZE);
}

bool ReadMatrix(CByteReader& reader, QMatrix4x4& matrix)
{
    Matrix numbers;
    return reader.ReadWords(numbers.data(), MATRIX_SIZE) && ToMatrix(numbers, matrix);
}

bool ReadRect(CByteReader& reader, QRect& rect)
{
    qint32 nLeft = 0, nTop = 0, nRight = 0, nBottom = 0;
    for (qint32* const pValue : {&nLeft, &nTop, &nRight, &nBottom})
        reader.Read(*pValue);
    const auto isPixel = [](qint32 nValue) { return std::abs(qint64(nValue)) <= MOST_PIXELS; };
    if (isPixel(nLeft) && isPixel(nTop) && isPixel(nRight) && isPixel(nBottom))
        rect.setCoords(nLeft, nTop, nRight, nBottom); // only told, so one that can't be does no harm
    return reader.IsOk();
}

template <class Numbers> QJsonArray ToArray(const Numbers& numbers)
{
    QJsonArray array;
    for (const double dNumber : numbers)
        array.append(dNumber);
    return array;
}

/** The numbers of a member; none if it is no array or has fewer. What is no number is 0. */
template <int COUNT>
std::optional<std::array<double, COUNT>> ToNumbers(const QJsonObject& object, const char* sMember)
{
    const QJsonArray array = object[sMember].toArray();
    if (array.size() < COUNT)
        return {};
    std::array<double, COUNT> numbers;
    for (int n = 0; n < COUNT; ++n)
        numbers[n] = array[n].toDouble();
    return numbers;
}

int ToPixel(double dValue) { return int(std::clamp(dValue, -1e9, 1e9)); }

} // namespace

SStoredCamera::SStoredCamera(const SCamera& camera) : rotationPoint(camera.rotationPoint)
{
    CByteWriter writer;
    WriteMatrix(writer, camera.projection);
    WriteMatrix(writer, camera.view);
    for (const int nValue :
         {camera.rect.left(), camera.rect.top(), camera.rect.right(), camera.rect.bottom()})
        writer.Write(qint32(nValue));
    for (const double dValue :
         {camera.viewCenter.x(), camera.viewCenter.y(), camera.viewSize.width(), camera.viewSize.height()})
        writer.Write(dValue);
    block = writer.Take();
}

std::optional<SCamera> SStoredCamera::Camera() const
{
    CByteReader reader(block);
    SCamera camera;
    if (!ReadMatrix(reader, camera.projection) || !ReadMatrix(reader, camera.view) ||
        !ReadRect(reader, camera.rect))
        return {};
    std::array<double, 4> values;
    if (!reader.ReadWords(values.data(), values.size()))
        return {};
    camera.viewCenter = {values[0], values[1]};
    camera.viewSize = {values[2], values[3]};
    camera.rotationPoint = rotationPoint;
    return IsUsable(camera) ? std::optional(camera) : std::nullopt;
}

void SStoredCamera::Write(CByteWriter& writer) const
{
    writer.Write(block);
    for (const double dValue : {rotationPoint.x, rotationPoint.y, rotationPoint.z})
        writer.Write(dValue);
}

bool SStoredCamera::Read(CByteReader& reader)
{
    reader.Read(block);
    for (double* const pValue : {&rotationPoint.x, &rotationPoint.y, &rotationPoint.z})
        reader.Read(*pValue);
    return reader.IsOk();
}

QByteArray SStoredCamera::ToBytes() const
{
    CByteWriter writer;
    Write(writer);
    return writer.Take();
}

SStoredCamera SStoredCamera::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    SStoredCamera stored;
    return stored.Read(reader) ? stored : SStoredCamera();
}

QJsonObject CameraToJson(const SCamera& camera)
{
    const QRect& rect = camera.rect;
    const DVector3D& point = camera.rotationPoint;
    return {{CAMERA, QJsonObject{{PROJECTION, ToArray(ToNumbers(camera.projection))},
                                 {VIEW, ToArray(ToNumbers(camera.view))},
                                 {RECT, QJsonArray{rect.x(), rect.y(), rect.width(), rect.height()}},
                                 {CENTER, QJsonArray{camera.viewCenter.x(), camera.viewCenter.y()}},
                                 {SIZE, QJsonArray{camera.viewSize.width(), camera.viewSize.height()}}}},
            {ROTATION_POINT, QJsonArray{point.x, point.y, point.z}}};
}

std::optional<SCamera> CameraFromJson(const QJsonObject& viewer)
{
    SCamera camera;
    const QJsonObject json = viewer[CAMERA].toObject();
    const auto point = ToNumbers<3>(viewer, ROTATION_POINT);
    if (json.isEmpty() && !point)
        return {};
    if (point)
        camera.rotationPoint = {(*point)[0], (*point)[1], (*point)[2]};
    if (const auto projection = ToNumbers<MATRIX_SIZE>(json, PROJECTION);
        projection && !ToMatrix(*projection, camera.projection))
        return {};
    if (const auto view = ToNumbers<MATRIX_SIZE>(json, VIEW); view && !ToMatrix(*view, camera.view))
        return {};
    if (const auto rect = ToNumbers<4>(json, RECT))
        camera.rect = {ToPixel((*rect)[0]), ToPixel((*rect)[1]), ToPixel((*rect)[2]), ToPixel((*rect)[3])};
    if (const auto center = ToNumbers<2>(json, CENTER))
        camera.viewCenter = {(*center)[0], (*center)[1]};
    if (const auto size = ToNumbers<2>(json, SIZE))
        camera.viewSize = {(*size)[0], (*size)[1]};
    return IsUsable(camera) ? std::optional(camera) : std::nullopt;
}
