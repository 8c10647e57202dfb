#include "cases/files/restartfile.h"

QByteArray SRestartFile::ToBytes() const { return WriteRecord(dVersion, nModuleId, key, display, camera); }

StoredFile_e SRestartFile::FromBytes(const QByteArray& bytes)
{
    return CRecordReader(bytes, VERSION).Versions(dVersion).Fields(nModuleId, key, display, camera).Result();
}
