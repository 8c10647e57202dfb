#pragma once

/**
 * Something that keeps data beside the memory items only to be faster and can make it again at any time.
 * CMemoryManager::FreeAll empties every cache that was added to it.
 */
class IMemoryCache
{
public:
    virtual ~IMemoryCache() = default;
    /** Drops what the cache keeps. Called on the thread of FreeAll, which holds no mutex meanwhile. */
    virtual void EmptyCache() = 0;
};
