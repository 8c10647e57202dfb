#include "app/batch/batchoptions.h"

QString CBatchOptions::Parse(const QStringList& sArgumentList, const QVector<SBatchOption>& options)
{
    for (int n = 0; n < sArgumentList.size(); ++n) {
        const QString sName = sArgumentList[n];
        const auto option = std::find_if(options.begin(), options.end(),
                                         [&](const SBatchOption& o) { return sName == o.sName; });
        if (option == options.end())
            return QString("unknown option '%1'").arg(sName);
        if (!option->bRepeats && Has(option->sName))
            return QString("%1 is given twice").arg(sName);
        QString sValue;
        if (option->sArgument) {
            if (++n == sArgumentList.size())
                return QString("%1 needs %2").arg(sName, option->sArgument);
            sValue = sArgumentList[n];
            if (sValue.startsWith("--"))
                return QString("%1 needs %2, and '%3' is an option; a file of that name is ./%3")
                    .arg(sName, option->sArgument, sValue);
        }
        m_values[sName].append(sValue);
        m_inOrder.append({sName, sValue});
    }
    return {};
}

QString HelpOf(const char* sCommand, const char* sSummary, const QVector<SBatchOption>& options)
{
    QString sText = QString("usage: zento-batch %1 OPTION...\n\n%2\n\n").arg(sCommand, sSummary);
    for (const SBatchOption& option : options) {
        const QString sForm =
            option.sArgument ? QString("%1 %2").arg(option.sName, option.sArgument) : QString(option.sName);
        sText +=
            QString("  %1  %2%3\n").arg(sForm, -22).arg(option.sHelp, option.bRepeats ? " (repeats)" : "");
    }
    return sText;
}
