#include "modules/base/casefile.h"

#include "frame/bytestream.h"

namespace {

constexpr int LONGEST_NAME = 64;
constexpr double HIGHEST_VERSION = 1000.0; // no file will ever have it: other bytes read as a number

bool IsName(const QString& sText)
{
    return !sText.isEmpty() && sText.size() <= LONGEST_NAME &&
           std::all_of(sText.begin(), sText.end(), [](QChar c) { return c.isPrint(); });
}

} // namespace

StoredFile_e CheckStoredVersion(double dVersion, double dKnown)
{
    if (!(dVersion >= 0.0 && dVersion < HIGHEST_VERSION)) // nan too
        return StoredBad;
    return dVersion > dKnown ? StoredNewer : StoredOk;
}

QByteArray SCaseFile::ToBytes() const
{
    CByteWriter writer;
    writer.Write(sModule);
    writer.Write(dDataVersion);
    writer.Write(dDisplayVersion);
    writer.Write(data);
    writer.Write(display);
    camera.Write(writer);
    return writer.Take();
}

StoredFile_e SCaseFile::FromBytes(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    reader.Read(sModule);
    reader.Read(dDataVersion);
    if (!reader.Read(dDisplayVersion))
        return StoredBad;
    for (const double dVersion : {dDataVersion, dDisplayVersion})
        if (const StoredFile_e eStored = CheckStoredVersion(dVersion, VERSION); eStored != StoredOk)
            return eStored;
    reader.Read(data);
    reader.Read(display);
    return camera.Read(reader) ? StoredOk : StoredBad;
}

bool LooksLikeCaseFile(const QByteArray& head)
{
    CByteReader reader(head);
    QString sName;
    double dData = -1.0, dDisplay = -1.0;
    reader.Read(sName);
    reader.Read(dData);
    return reader.Read(dDisplay) && IsName(sName) && dData > 0.0 && dData < HIGHEST_VERSION &&
           dDisplay > 0.0 && dDisplay < HIGHEST_VERSION;
}
