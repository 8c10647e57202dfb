#pragma once

#include "cases/files/storedrecord.h"

/** The record of an automatic save (docs/formats/casefiles.md). */
struct SAutosaveFile
{
    static constexpr double VERSION = 1.0; ///< of what is written; nothing above it is read

    QString sModule;     ///< the name of the module that opens the case
    QString sName;       ///< what the user knows the case by
    QString sFilePath;   ///< of its case file; empty for a case that was never saved
    QByteArray caseFile; ///< what that file would hold if the case were saved now
    double dVersion = VERSION;

    QByteArray ToBytes() const;
    /** On anything but StoredOk the record stays as it is. */
    StoredFile_e FromBytes(const QByteArray& bytes);
};
