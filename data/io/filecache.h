#pragma once

#include "data/io/filestamp.h"
#include "data/io/plot3dfile.h"

#include <QHash>
#include <QString>

#include <mutex>

/**
 * What was detected of each file, so that it isn't probed once a block. A file that has changed on disk is
 * looked at anew. May be used from any thread.
 */
class CFileCache
{
public:
    /**
     * What was found of the file before, otherwise what detect() finds now.
     *
     * @param like  what the file was to be like; it may be known as several things
     */
    template <class Detect>
    SPlot3DFile Find(const QString& sFileName, const SPlot3DFile& like, const Detect& detect)
    {
        const SKey key{sFileName, like.nCode, like.layout};
        const SFileStamp stamp = SFileStamp::Of(sFileName);
        {
            const std::lock_guard lock(m_mutex);
            const auto found = m_files.constFind(key);
            if (found != m_files.cend() && found->stamp == stamp)
                return found->file;
        }
        const SPlot3DFile file = detect();
        if (file.IsDetected()) {
            const std::lock_guard lock(m_mutex);
            m_files.insert(key, {stamp, file});
        }
        return file;
    }
    void Clear()
    {
        const std::lock_guard lock(m_mutex);
        m_files.clear();
    }

private:
    struct SKey
    {
        QString sFileName;
        int nCode;
        SFileLayout layout;

        friend bool operator==(const SKey&, const SKey&) = default;
        friend uint qHash(const SKey& key, uint nSeed = 0)
        {
            return ::qHash(key.sFileName, nSeed) ^ uint(key.nCode);
        }
    };
    struct SEntry
    {
        SFileStamp stamp;
        SPlot3DFile file;
    };

    std::mutex m_mutex; // guards m_files; nothing is called under it
    QHash<SKey, SEntry> m_files;
};
