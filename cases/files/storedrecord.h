#pragma once

#include "frame/packs/bytestream.h"

/** What became of the bytes of a stored file. */
enum StoredFile_e {
    StoredOk,
    StoredNewer, ///< of a later version of the program, which has nothing to say here
    StoredBad,   ///< not such a file, or not all of it
};

/** Whether a number that stands in a file can be the version of one. */
bool IsStoredVersion(double dVersion);

/** The bytes of a record: its fields one after the other. What knows how to write itself does. */
template <class... Fields> QByteArray WriteRecord(const Fields&... fields)
{
    CByteWriter writer;
    const auto write = [&writer](const auto& field) {
        if constexpr (requires { field.Write(writer); })
            field.Write(writer);
        else
            writer.Write(field);
    };
    (write(fields), ...);
    return writer.Take();
}

/**
 * Reads the fields of a record in their order, and nothing any more once one of them is bad or a version is
 * newer than what is known. What can't be read stays as it was.
 *
 *     return CRecordReader(bytes, VERSION).Versions(dVersion).Fields(nModuleId, key).Result();
 */
class CRecordReader
{
public:
    /** @param dKnown  the newest version that is read */
    CRecordReader(const QByteArray& bytes, double dKnown) : m_reader(bytes), m_dKnown(dKnown) {}

    /** All of them are read before one is judged: they are known of a newer file too. */
    template <class... Doubles> CRecordReader& Versions(Doubles&... dVersions)
    {
        Fields(dVersions...);
        (Judge(dVersions), ...);
        return *this;
    }
    template <class... Types> CRecordReader& Fields(Types&... fields)
    {
        (Read(fields), ...);
        return *this;
    }
    /** Bytes behind the record make it bad; elsewhere they are ignored. */
    CRecordReader& End();
    StoredFile_e Result() const { return m_eResult; }

private:
    template <class Type> void Read(Type& field)
    {
        if (m_eResult != StoredOk)
            return;
        if constexpr (requires { field.Read(m_reader); })
            field.Read(m_reader);
        else
            m_reader.Read(field);
        if (!m_reader.IsOk())
            m_eResult = StoredBad;
    }
    void Judge(double dVersion);

    CByteReader m_reader;
    const double m_dKnown;
    StoredFile_e m_eResult = StoredOk;
};
