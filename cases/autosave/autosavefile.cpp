#include "cases/autosave/autosavefile.h"

QByteArray SAutosaveFile::ToBytes() const
{
    return WriteRecord(dVersion, sModule, sName, sFilePath, caseFile);
}

StoredFile_e SAutosaveFile::FromBytes(const QByteArray& bytes)
{
    SAutosaveFile read;
    const StoredFile_e eStored = CRecordReader(bytes, VERSION)
                                     .Versions(read.dVersion)
                                     .Fields(read.sModule, read.sName, read.sFilePath, read.caseFile)
                                     .End()
                                     .Result();
    if (eStored == StoredOk)
        *this = read;
    return eStored;
}
