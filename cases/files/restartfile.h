#pragma once

#include "cases/files/storedrecord.h"

/** The record of a restart file of one case, ".srst" (docs/formats/casefiles.md). */
struct SRestartFile
{
    static constexpr double VERSION = 1.7; ///< of what is written; nothing above it is read

    double dVersion = VERSION;
    qint64 nModuleId = -1;
    QByteArray key;     ///< GetDataFileKey of the simulation
    QByteArray display; ///< SaveViewState of one view
    QByteArray camera;  ///< block of SStoredCamera, without a rotation point

    QByteArray ToBytes() const;
    StoredFile_e FromBytes(const QByteArray& bytes);
};
