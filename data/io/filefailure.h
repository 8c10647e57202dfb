#pragma once

#include "data/io/filestamp.h"
#include "frame/memory/imemoryitem.h"

#include <mutex>
#include <optional>

/** What a file was when it couldn't be read, so that it is tried again once it has changed. Any thread. */
class CFileFailure
{
public:
    /** Ends what was noted unless the status is final. */
    void Note(int nStatus, const QString& sFileName)
    {
        const bool bFinal = nStatus == LoadFailed || nStatus == LoadBadContent;
        const std::lock_guard lock(m_mutex);
        m_stamp = bFinal ? std::optional(SFileStamp::Of(sFileName)) : std::nullopt;
    }
    bool IsNoted() const
    {
        const std::lock_guard lock(m_mutex);
        return m_stamp.has_value();
    }
    /** False without a failure. */
    bool HasFileChanged(const QString& sFileName) const
    {
        const std::lock_guard lock(m_mutex);
        return m_stamp && *m_stamp != SFileStamp::Of(sFileName);
    }

private:
    mutable std::mutex m_mutex;
    std::optional<SFileStamp> m_stamp;
};
