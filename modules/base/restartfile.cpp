#include "modules/base/restartfile.h"

#include "frame/bytestream.h"

QByteArray SRestartFile::ToBytes() const
{
    CByteWriter writer;
    writer.Write(dVersion);
    writer.Write(nModuleId);
    for (const QByteArray* const pBytes : {&key, &display, &camera})
        writer.Write(*pBytes);
    return writer.Take();
}

StoredFile_e SRestartFile::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    if (!reader.Read(dVersion))
        return StoredBad;
    if (const StoredFile_e eStored = CheckStoredVersion(dVersion, VERSION); eStored != StoredOk)
        return eStored;
    reader.Read(nModuleId);
    for (QByteArray* const pBytes : {&key, &display, &camera})
        reader.Read(*pBytes);
    return reader.IsOk() ? StoredOk : StoredBad;
}
