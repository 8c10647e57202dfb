#include "cases/display/displaydocument.h"

#include <QJsonDocument>

namespace {

constexpr const char *OVERRIDES = "userCustomSettings", *COMMENT = "userCustomSettings_comment",
                     *VERSION_MEMBER = "version", *VIEWER = "viewer", *DISPLAY = "viewportDisp",
                     *FORMER_DISPLAY = "disp", *MIRROR = "mirror", *SECTORS = "periodic";
constexpr const char* COMMENT_TEXT =
    "Edit userCustomSettings above to customize display. Do not modify data below manually.";
constexpr double NO_VERSION = -1.0;

/** Without the mark that some editors put at the front. */
QByteArray WithoutMark(const QByteArray& bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
}

} // namespace

QByteArray SDisplayDocument::ToBytes() const
{
    return QJsonDocument(QJsonObject{{OVERRIDES, overrides},
                                     {COMMENT, COMMENT_TEXT},
                                     {VERSION_MEMBER, dVersion},
                                     {VIEWER, viewer},
                                     {DISPLAY, display}})
        .toJson();
}

StoredFile_e SDisplayDocument::FromBytes(const QByteArray& bytes)
{
    const QJsonDocument document = QJsonDocument::fromJson(WithoutMark(bytes).trimmed());
    if (!document.isObject())
        return StoredBad;
    const QJsonObject root = document.object();
    dVersion = root[VERSION_MEMBER].toDouble(NO_VERSION);
    if (dVersion > VERSION)
        return StoredNewer;
    overrides = root[OVERRIDES].toObject();
    viewer = root[VIEWER].toObject();
    mirror = root[MIRROR].toObject();
    sectors = root[SECTORS].toObject();
    display = root[root.contains(DISPLAY) ? DISPLAY : FORMER_DISPLAY].toObject();
    return StoredOk;
}

bool SDisplayDocument::IsJson(const QByteArray& bytes)
{
    return WithoutMark(bytes).trimmed().startsWith('{');
}

QByteArray SOldDisplayFile::ToBytes() const { return WriteRecord(dVersion, display, camera); }

StoredFile_e SOldDisplayFile::FromBytes(const QByteArray& bytes)
{
    return CRecordReader(bytes, SDisplayDocument::VERSION)
        .Versions(dVersion)
        .Fields(display, camera)
        .Result();
}
