#include "app/batch/becomeprogram.h"

#include <unistd.h>
#include <vector>

void BecomeProgram(const QString& sProgram, const QStringList& sArgumentList)
{
    std::vector<QByteArray> texts = {sProgram.toLocal8Bit()};
    for (const QString& sArgument : sArgumentList)
        texts.push_back(sArgument.toLocal8Bit());
    std::vector<char*> arguments;
    for (QByteArray& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
}
