#pragma once

#include "view/camera/camera.h"

#include <QByteArray>
#include <QJsonObject>

#include <optional>

class CByteReader;
class CByteWriter;

/**
 * A camera as case and restart files keep it: a block of bytes, and the rotation point that follows it in
 * case files (docs/formats/casefiles.md). A simulation's camera data (ISimulation::GetCameraData) are both.
 */
struct SStoredCamera
{
    QByteArray block; ///< empty: there is no camera
    DVector3D rotationPoint;

    SStoredCamera() = default;
    explicit SStoredCamera(const SCamera& camera);

    /** None for an empty block, one that isn't whole, and numbers with which nothing could be shown. */
    std::optional<SCamera> Camera() const;

    void Write(CByteWriter& writer) const;
    /** False, and the reader is bad, for bytes that end early; the block isn't looked into. */
    bool Read(CByteReader& reader);

    QByteArray ToBytes() const;
    /** An empty one for bytes that end early. */
    static SStoredCamera FromBytes(const QByteArray& bytes);
};

/** The camera in a display file: an object with "camera" and "rotationPoint". */
QJsonObject CameraToJson(const SCamera& camera);

/**
 * What the object doesn't name has its default; an array that is too short counts as absent.
 *
 * @return none for numbers with which nothing could be shown, and for an object that names neither member
 */
std::optional<SCamera> CameraFromJson(const QJsonObject& viewer);
