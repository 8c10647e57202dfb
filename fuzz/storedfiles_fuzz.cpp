// Case, restart, display and autosave files of any bytes, with what is read out of them: cameras and
// overrides. The first byte says which reader; what it takes is written again as it was.
#include "cases/autosave/autosavefile.h"
#include "cases/display/displaydocument.h"
#include "cases/display/displayoverrides.h"
#include "cases/display/pairjson.h"
#include "cases/files/casefile.h"
#include "cases/files/restartfile.h"
#include "frame/packs/bytestream.h"

#include <cstdlib>

namespace {

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

template <class File> void CheckRecord(const QByteArray& bytes)
{
    File file;
    if (file.FromBytes(bytes) == StoredOk)
        Require(bytes.startsWith(file.ToBytes()));
}

void CheckCamera(const QByteArray& bytes)
{
    const SStoredCamera stored = SStoredCamera::FromBytes(bytes);
    if (const auto camera = stored.Camera())
        Require(SStoredCamera(*camera).Camera() == camera && CameraFromJson(CameraToJson(*camera)) == camera);
}

void CheckDocument(const QByteArray& bytes)
{
    SDisplayDocument document;
    if (document.FromBytes(bytes) != StoredOk)
        return;
    CameraFromJson(document.viewer);
    SOverridable values;
    values.display = document.display;
    DisplayOverrides::Apply(document.overrides, values);
    MirrorFromJson(values.mirror);
    SectorsFromJson(values.sectors);
    // The table of a display says what it is: it changes nothing. Names that hold points can stand for two.
    const QJsonObject table = DisplayOverrides::Build(values);
    if (DisplayOverrides::Apply(table, values).isEmpty())
        Require(DisplayOverrides::Build(values).keys() == table.keys());
}

} // namespace

// Qt 5.15's parser doesn't free what it has built of a broken document.
extern "C" const char* __lsan_default_suppressions() { return "leak:libQt5Core"; }

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    if (nSize == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(pData) + 1, int(nSize) - 1);
    switch (pData[0] % 6) {
    case 0:
        CheckRecord<SCaseFile>(bytes);
        LooksLikeCaseFile(bytes);
        break;
    case 1:
        CheckRecord<SRestartFile>(bytes);
        break;
    case 2:
        CheckRecord<SOldDisplayFile>(bytes);
        break;
    case 3:
        CheckCamera(bytes);
        break;
    case 5:
        CheckRecord<SAutosaveFile>(bytes);
        break;
    default:
        CheckDocument(bytes);
    }
    return 0;
}
