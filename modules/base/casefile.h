#pragma once

#include "modules/base/storedcamera.h"

/** What became of the bytes of a stored file. */
enum StoredFile_e {
    StoredOk,
    StoredNewer, ///< of a later version of the program, which has nothing to say here
    StoredBad,   ///< not such a file, or not all of it
};

/** What a reader makes of a version that stands in a file; one that can't be a version is bad. */
StoredFile_e CheckStoredVersion(double dVersion, double dKnown);

/** The record of a case file, ".zento" (docs/formats/casefiles.md). */
struct SCaseFile
{
    static constexpr double VERSION = 1.0; ///< of what is written; nothing above it is read

    QString sModule; ///< the name of the module that opens it
    double dDataVersion = VERSION;
    double dDisplayVersion = VERSION;
    QByteArray data;    ///< ToBytes of the simulation
    QByteArray display; ///< SaveViewState of one view
    SStoredCamera camera;

    QByteArray ToBytes() const;
    /** On StoredNewer module and versions are known; on StoredBad what could be read, the module in any case.
     */
    StoredFile_e FromBytes(const QByteArray& bytes);
};

/**
 * Whether the bytes begin as those of a case file do: with a name and two version numbers.
 *
 * @param head  the first bytes of a file, 512 are enough
 */
bool LooksLikeCaseFile(const QByteArray& head);
