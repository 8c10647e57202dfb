#include "frame/memory/memoryitem.h"

#include "frame/memory/memorymanager.h"

CMemoryItem::~CMemoryItem() { Q_ASSERT(m_nMemoryId == NO_ID); }

CMemoryRegistration::CMemoryRegistration(IMemoryItem* pItem) : m_pItem(pItem)
{
    CMemoryManager::Instance().Register(pItem);
}

CMemoryRegistration::~CMemoryRegistration() { CMemoryManager::Instance().Unregister(m_pItem); }
