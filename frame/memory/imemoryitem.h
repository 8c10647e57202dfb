#pragma once

#include <QtGlobal>

/** How the last load of a memory item, or a read of its data, ended: whoever reads has to look at it. */
enum [[nodiscard]] LoadStatus_e : int{
    LoadOk = 0,
    LoadNoMemory = 2,   ///< the allocation failed; the manager frees other items and tries again
    LoadFailed = 3,     ///< failed for good; the item isn't tried again while its file stays as it is
    LoadBadContent = 5, ///< the file holds something else; as final as LoadFailed
    LoadNever = 6       ///< never loaded, or to be loaded anew
};

/**
 * Something large that is loaded at first use and may be dropped while nobody uses it: every grid and
 * solution. CMemoryManager calls these; see there for which of them run under its mutex.
 */
class IMemoryItem
{
public:
    virtual ~IMemoryItem() = default;

    /** The id that the manager gave, -1 before. */
    virtual qint64 GetMemoryId() const = 0;
    virtual void SetMemoryId(qint64 nId) = 0;
    /** True once the item has been loaded through the manager, whatever became of it. */
    virtual void SetLoaded(bool bLoaded) = 0;
    virtual bool IsLoaded() const = 0;
    virtual int GetStatus() const = 0;
    virtual void SetStatus(int nStatus) = 0;
    /** Bytes that the item holds now; 0 if it isn't in memory. */
    virtual qint64 GetBytesInUse() const = 0;
    /** Bytes that a load would take. 0: there is nothing to load. Unknown before the first load: 1. */
    virtual qint64 GetBytesNeeded() const = 0;
    /**
     * Loads the data on the calling thread, without the manager's state mutex; returns at once if they are
     * there. Gives a LoadStatus_e; LoadNever: not this time, but the next access shall try again.
     */
    virtual int Load() = 0;
    /** Drops the data. */
    virtual void Unload() = 0;
    virtual void SetUseCount(qint64 nCount) = 0;
    virtual qint64 GetUseCount() const = 0;
    virtual void SetLastAccess(qint64 nStamp) = 0;
    virtual qint64 GetLastAccess() const = 0;
};
