#pragma once

#include <QStringList>

/** The files of a case, told apart by what they are to be. */
struct SDataFiles
{
    QString sGridFile;
    QStringList sSolutionFileList; ///< several are the levels of a series
    QStringList sFunctionFileList;

    QStringList All() const { return QStringList{sGridFile} + sSolutionFileList + sFunctionFileList; }
};

/** A case whose blocks and variables are registered; its blocks are the items 1, 2, ... */
struct SOpenedCase
{
    QString sError; ///< for the user; nothing is registered then. Empty if all went well
    qint64 nBlocks = 0;
};

/** A kind of data files. */
struct SDataFormat
{
    const char* sName;
    /** Whether one of the files is of the kind; tells nothing, and nothing stays open. */
    bool (*CanRead)(const QStringList& sFileList);
    /** Registers what the files hold; reads no data. RemoveCaseData lets go of it. */
    SOpenedCase (*Open)(qint64 nSimulationId, const SDataFiles& files);
};

/** The first that can read the files; null if none can. */
const SDataFormat* FindDataFormat(const QStringList& sFileList);

/** The kind of that name, which must be there. */
const SDataFormat& DataFormatNamed(const char* sName);
