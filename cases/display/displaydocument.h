#pragma once

#include "cases/files/storedcamera.h"
#include "cases/files/storedrecord.h"

/** The record of a display file, ".disp", in its JSON form (docs/formats/displayfiles.md). */
struct SDisplayDocument
{
    static constexpr double VERSION = 1.0; ///< of what is written; nothing above it is read

    QJsonObject overrides; ///< "userCustomSettings": the short table that users edit
    double dVersion = VERSION;
    QJsonObject viewer;  ///< CameraToJson
    QJsonObject display; ///< SaveViewJson of a view
    QJsonObject mirror;  ///< MirrorToJson; only read: what is written has it among the overrides
    QJsonObject sectors; ///< SectorsToJson; the same

    QByteArray ToBytes() const;
    /** StoredBad for what is no JSON object. A file without a version has -1.0. */
    StoredFile_e FromBytes(const QByteArray& bytes);

    /** Whether a display file has this form: all others have the older one. */
    static bool IsJson(const QByteArray& bytes);
};

/** The record of a display file in its older form. */
struct SOldDisplayFile
{
    double dVersion = SDisplayDocument::VERSION;
    QByteArray display; ///< SaveViewState of a view
    QByteArray camera;  ///< block of SStoredCamera

    QByteArray ToBytes() const;
    StoredFile_e FromBytes(const QByteArray& bytes);
};
