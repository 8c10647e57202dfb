#pragma once

#include "data/io/plot3dfile.h"

#include <QHash>
#include <QString>

#include <mutex>
#include <optional>

/**
 * What was detected of each file, so that it isn't probed once a block. Emptied at every registration, since
 * a solver may have rewritten a file. May be used from any thread.
 */
class CFileCache
{
public:
    std::optional<SPlot3DFile> Find(const QString& sFileName) const
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_files.constFind(sFileName);
        return found == m_files.cend() ? std::nullopt : std::optional(*found);
    }
    void Store(const QString& sFileName, const SPlot3DFile& file)
    {
        const std::lock_guard lock(m_mutex);
        m_files.insert(sFileName, file);
    }
    void Clear()
    {
        const std::lock_guard lock(m_mutex);
        m_files.clear();
    }

private:
    mutable std::mutex m_mutex; // guards m_files; nothing is called under it
    QHash<QString, SPlot3DFile> m_files;
};
