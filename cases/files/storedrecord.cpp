#include "cases/files/storedrecord.h"

bool IsStoredVersion(double dVersion)
{
    constexpr double HIGHEST = 1000.0; // no file will ever have it: other bytes read as a number
    return dVersion >= 0.0 && dVersion < HIGHEST;
}

void CRecordReader::Judge(double dVersion)
{
    if (m_eResult != StoredOk)
        return;
    if (!IsStoredVersion(dVersion))
        m_eResult = StoredBad;
    else if (dVersion > m_dKnown)
        m_eResult = StoredNewer;
}

CRecordReader& CRecordReader::End()
{
    if (m_eResult == StoredOk && m_reader.BytesLeft() != 0)
        m_eResult = StoredBad;
    return *this;
}
