#pragma once

#include "frame/memory/imemoryitem.h"
#include "frame/novalue.h"

#include <atomic>

/**
 * The base of all memory items: keeps what CMemoryManager wants to know. A concrete class adds Load and
 * Unload and keeps both byte counts true.
 *
 * All fields are atomic: the manager writes them under its mutex, but anybody may ask for a use count or a
 * status without it, and a Load changes the byte counts while another thread looks for something to evict.
 *
 * The base neither registers itself nor unregisters: the manager may call Load or Unload from another thread
 * as soon as it knows the item, and until it has forgotten it, so both belong to the class whose object is
 * complete at that time. Let that class hold a CMemoryRegistration.
 */
class CMemoryItem : public IMemoryItem
{
public:
    CMemoryItem() = default;
    /** Asserts that the item isn't registered any more. */
    ~CMemoryItem() override;
    CMemoryItem(const CMemoryItem&) = delete;
    CMemoryItem& operator=(const CMemoryItem&) = delete;

    qint64 GetMemoryId() const override { return m_nMemoryId; }
    void SetMemoryId(qint64 nId) override { m_nMemoryId = nId; }
    void SetLoaded(bool bLoaded) override { m_bLoaded = bLoaded; }
    bool IsLoaded() const override { return m_bLoaded; }
    int GetStatus() const override { return m_nStatus; }
    void SetStatus(int nStatus) override { m_nStatus = nStatus; }
    qint64 GetBytesInUse() const override { return m_nBytesInUse; }
    qint64 GetBytesNeeded() const override { return m_nBytesNeeded; }
    /** There is nothing that could be loaded: LoadFailed. */
    int Load() override { return LoadFailed; }
    void Unload() override {}
    void SetUseCount(qint64 nCount) override { m_nUseCount = nCount; }
    qint64 GetUseCount() const override { return m_nUseCount; }
    void SetLastAccess(qint64 nStamp) override { m_nLastAccess = nStamp; }
    qint64 GetLastAccess() const override { return m_nLastAccess; }

protected:
    /** The last load failed for good. */
    bool HasFailed() const { return m_nStatus == LoadFailed || m_nStatus == LoadBadContent; }
    void SetBytesInUse(qint64 nBytes) { m_nBytesInUse = nBytes; }
    void SetBytesNeeded(qint64 nBytes) { m_nBytesNeeded = nBytes; }

private:
    std::atomic<qint64> m_nMemoryId = NO_ID;
    std::atomic<bool> m_bLoaded = false;
    std::atomic<int> m_nStatus = LoadNever;
    std::atomic<qint64> m_nBytesInUse = 0;
    std::atomic<qint64> m_nBytesNeeded = 0;
    std::atomic<qint64> m_nUseCount = 0;   // written under the manager's mutex only
    std::atomic<qint64> m_nLastAccess = 0; // the same
};

/**
 * Registers an item with CMemoryManager for as long as it lives.
 *
 * Make it the LAST member of the concrete (best: final) class, so that it begins when everything a Load
 * needs is there and ends before anything of it goes; its end waits for a load or unload in another thread.
 * An item that is registered later than it is made holds it in a std::optional, likewise the last member.
 */
class CMemoryRegistration
{
public:
    explicit CMemoryRegistration(IMemoryItem* pItem);
    ~CMemoryRegistration();
    CMemoryRegistration(const CMemoryRegistration&) = delete;
    CMemoryRegistration& operator=(const CMemoryRegistration&) = delete;

private:
    IMemoryItem* const m_pItem;
};
