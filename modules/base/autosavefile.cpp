#include "modules/base/autosavefile.h"

#include "frame/bytestream.h"

QByteArray SAutosaveFile::ToBytes() const
{
    CByteWriter writer;
    writer.Write(dVersion);
    writer.Write(sModule);
    writer.Write(sName);
    writer.Write(sFilePath);
    writer.Write(caseFile);
    return writer.Take();
}

StoredFile_e SAutosaveFile::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    SAutosaveFile read;
    read.dVersion = -1.0;
    reader.Read(read.dVersion);
    if (const StoredFile_e eStored = CheckStoredVersion(read.dVersion, VERSION); eStored != StoredOk)
        return eStored;
    reader.Read(read.sModule);
    reader.Read(read.sName);
    reader.Read(read.sFilePath);
    if (!reader.Read(read.caseFile) || reader.BytesLeft() != 0)
        return StoredBad;
    *this = read;
    return StoredOk;
}
