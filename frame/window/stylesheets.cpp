#include "frame/window/stylesheets.h"

#include <QFile>

namespace {
constexpr const char* SHEET_RESOURCES[] = {"", ":/qss/dark.qss", ":/qss/combinear.qss", ":/qss/medize.qss"};
}

QStringList LoadStyleSheets(const QString& sOwnSheet)
{
    QStringList sheets;
    for (const char* const sResource : SHEET_RESOURCES) {
        QFile file{QString(sResource)};
        if (*sResource && file.open(QIODevice::ReadOnly))
            sheets.append(QString::fromUtf8(file.readAll().constData()));
        else
            sheets.append(sOwnSheet);
    }
    return sheets;
}
