#include "cases/files/casefile.h"

namespace {

constexpr int LONGEST_NAME = 64;

bool IsName(const QString& sText)
{
    return !sText.isEmpty() && sText.size() <= LONGEST_NAME &&
           std::all_of(sText.begin(), sText.end(), [](QChar c) { return c.isPrint(); });
}

} // namespace

QByteArray SCaseFile::ToBytes() const
{
    return WriteRecord(sModule, dDataVersion, dDisplayVersion, data, display, camera);
}

StoredFile_e SCaseFile::FromBytes(const QByteArray& bytes)
{
    return CRecordReader(bytes, VERSION)
        .Fields(sModule)
        .Versions(dDataVersion, dDisplayVersion)
        .Fields(data, display, camera)
        .Result();
}

bool LooksLikeCaseFile(const QByteArray& head)
{
    CByteReader reader(head);
    QString sName;
    double dData = 0.0, dDisplay = 0.0;
    reader.Read(sName);
    reader.Read(dData);
    reader.Read(dDisplay);
    return IsName(sName) && dData > 0.0 && IsStoredVersion(dData) && dDisplay > 0.0 &&
           IsStoredVersion(dDisplay);
}
