#include "window/startup/commandline.h"

#include "frame/applicationinfo.h"

namespace {

QString VersionText() { return QString("%1 %2\n").arg(ApplicationInfo::NAME, ApplicationInfo::VERSION); }

QString HelpText()
{
    return "usage: zento [FILE]\n"
           "       zento MODULE ARGUMENT...\n"
           "\n"
           "Without arguments the window opens with no simulation; with one it opens that file.\n"
           "With two or more the first names a module, which runs without the main window.\n"
           "\n"
           "  --help     print this and exit\n"
           "  --version  print the version and exit\n";
}

} // namespace

SCommandLine ParseCommandLine(const QStringList& sArgumentList)
{
    if (sArgumentList.size() >= 3)
        return {SCommandLine::RunModule, {}, sArgumentList[1], {}};
    if (sArgumentList.size() < 2)
        return {};
    if (sArgumentList[1] == "--help" || sArgumentList[1] == "-h")
        return {SCommandLine::PrintAndExit, {}, {}, HelpText()};
    if (sArgumentList[1] == "--version")
        return {SCommandLine::PrintAndExit, {}, {}, VersionText()};
    return {SCommandLine::OpenFile, sArgumentList[1], {}, {}};
}
