#pragma once

#include "cases/files/storedcamera.h"
#include "cases/files/storedrecord.h"

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
