#include "cases/files/movedfiles.h"

#include "frame/userprompt.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int MOST_LEVELS = 16; // up from the case, and of an end of a path
constexpr int MOST_LISTED = 10; // in a message

/** The ends of a path, the longest first: "a/b/c", "b/c", "c". */
QStringList EndsOf(const QString& sPath)
{
    const QStringList sPartList = sPath.split('/', Qt::SkipEmptyParts);
    QStringList sEndList;
    for (int n = std::max(0, sPartList.size() - MOST_LEVELS); n < sPartList.size(); ++n)
        sEndList.append(sPartList.mid(n).join('/'));
    return sEndList;
}

/** The folder and those above it, the nearest first; the root isn't one of them. */
QStringList FoldersFrom(const QString& sFolder)
{
    QStringList sFolderList;
    QDir folder(QDir(sFolder).absolutePath());
    while (sFolderList.size() < MOST_LEVELS && !folder.isRoot()) {
        sFolderList.append(folder.path());
        if (!folder.cdUp())
            break;
    }
    return sFolderList;
}

QString FindEnd(const QString& sEnd, const QStringList& sFolderList)
{
    for (const QString& sFolder : sFolderList)
        if (const QString sFile = QDir(sFolder).absoluteFilePath(sEnd); QFileInfo(sFile).isFile())
            return sFile;
    return {};
}

} // namespace

QString FindMovedFile(const QString& sFormerName, const QString& sCaseFolder)
{
    const QStringList sFolderList = sCaseFolder.isEmpty() ? QStringList() : FoldersFrom(sCaseFolder);
    if (sFolderList.isEmpty())
        return {};
    for (const QString& sEnd : EndsOf(QDir::cleanPath(sFormerName))) {
        const bool bBareName = !sEnd.contains('/');
        if (const QString sFile = FindEnd(sEnd, bBareName ? QStringList(sFolderList.first()) : sFolderList);
            !sFile.isEmpty())
            return sFile;
    }
    return {};
}

QString FindFileBelow(const QString& sFormerName, const QString& sFolder)
{
    for (const QString& sEnd : EndsOf(QDir::cleanPath(sFormerName)))
        if (const QString sFile = sFolder.isEmpty() ? QString() : FindEnd(sEnd, {sFolder}); !sFile.isEmpty())
            return sFile;
    return {};
}

QString AskForMissingFiles(const QString& sCaseName, const QStringList& sMissingList)
{
    enum { CHOOSE, WITHOUT };
    QStringList sShownList = sMissingList.mid(0, MOST_LISTED);
    if (sMissingList.size() > MOST_LISTED)
        sShownList.append(QString("... and %1 more").arg(sMissingList.size() - MOST_LISTED));
    const QString sText =
        QString("Files of the case '%1' are not where they were:\n%2").arg(sCaseName, sShownList.join('\n'));
    const int nAnswer = UserPrompt::Ask(
        {PromptWarning, "Missing Files", sText, {"Choose Folder...", "Open Without"}, CHOOSE, WITHOUT});
    if (nAnswer != CHOOSE)
        return {};
    SFilePrompt prompt{"Select the Folder of the Files", QFileInfo(sMissingList.first()).absolutePath(), {}};
    prompt.bFolder = true;
    return UserPrompt::AskFile(prompt);
}
