#pragma once

#include <QStringView>

/** A path cut behind its first component; empty components are skipped. */
struct SPackPath
{
    QStringView sFirst; // empty only for a path without components
    QStringView sRest;  // empty if there is no further component, never begins with "."

    explicit SPackPath(QStringView sPath)
    {
        sPath = SkipDots(sPath);
        qsizetype nEnd = 0;
        while (nEnd < sPath.size() && sPath[nEnd] != u'.')
            ++nEnd;
        sFirst = sPath.left(nEnd);
        sRest = SkipDots(sPath.mid(nEnd));
    }

private:
    static QStringView SkipDots(QStringView sPath)
    {
        while (!sPath.isEmpty() && sPath.front() == u'.')
            sPath = sPath.mid(1);
        return sPath;
    }
};
