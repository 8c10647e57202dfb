#include "modules/plot3d/fieldview/fieldviewrestart.h"

#include "modules/plot3d/fieldview/fieldviewtext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 LARGEST_FILE = 64 << 20; // [bytes]
constexpr int MARK_LINES = 100;
constexpr const char *RESTART_MARK = "data_file_restart_version:", *TYPE_MARK = "data_type:";

/** Nothing for what isn't a text of reasonable size. */
std::optional<QString> ReadText(const QString& sFileName)
{
    QFile file(sFileName);
    if (!QFileInfo(sFileName).isFile() || file.size() > LARGEST_FILE || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    return bytes.contains('\0') ? std::nullopt : std::optional(QString::fromUtf8(bytes));
}

/** Whether it begins with the version of a section: grids may have the same name but for the ending. */
bool IsCompanion(const QString& sFileName)
{
    constexpr qint64 HEAD = 256; // [bytes]
    QFile file(sFileName);
    return file.open(QIODevice::ReadOnly) && file.read(HEAD).contains("_restart_version:");
}

} // namespace

bool IsFieldViewRestart(const QString& sFileName)
{
    QFile file(sFileName);
    if (!QFileInfo(sFileName).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    bool bRestart = false, bType = false;
    constexpr int LONGEST_LINE = 4096;
    for (int n = 0; n < MARK_LINES && !file.atEnd() && !(bRestart && bType); ++n) {
        const QByteArray line = file.readLine(LONGEST_LINE).trimmed();
        bRestart = bRestart || line.startsWith(RESTART_MARK);
        bType = bType || line.startsWith(TYPE_MARK);
    }
    return bRestart && bType;
}

std::optional<SFieldViewRestart> ReadFieldViewRestart(const QString& sFileName)
{
    const std::optional<QString> main = ReadText(sFileName);
    if (!main)
        return {};
    SFieldViewRestart restart;
    ReadFieldViewText(*main, restart);
    const QFileInfo info(sFileName);
    for (const QFileInfo& file : info.dir().entryInfoList(QDir::Files, QDir::Name))
        if (file.completeBaseName() == info.completeBaseName() && file != info &&
            IsCompanion(file.filePath()))
            if (const auto text = ReadText(file.filePath()))
                ReadFieldViewText(*text, restart);
    return restart;
}
