#include "data/io/filestamp.h"

#include <QFile>

#include <filesystem>

// Not by QDateTime: each of its local times asks for the time zone, which locks the whole process.
SFileStamp SFileStamp::Of(const QString& sFileName)
{
    const std::filesystem::path path(QFile::encodeName(sFileName).toStdString());
    std::error_code noFile, noTime;
    const auto nSize = std::filesystem::file_size(path, noFile);
    const auto modified = std::filesystem::last_write_time(path, noTime);
    if (noFile || noTime)
        return {};
    return {qint64(nSize), qint64(modified.time_since_epoch().count())};
}
