#pragma once

#include <QMap>
#include <QStringList>
#include <QVector>

/** One option of a sub-command. */
struct SBatchOption
{
    const char* sName;     ///< "--grid"
    const char* sArgument; ///< what it takes, for the help; null: nothing
    bool bRepeats;
    const char* sHelp;
};

/** The options of a call, in the order given; an option without an argument has an empty one. */
class CBatchOptions
{
public:
    /** @return the problem in one line; empty if all is well */
    QString Parse(const QStringList& sArgumentList, const QVector<SBatchOption>& options);

    bool Has(const char* sName) const { return m_values.contains(sName); }
    QStringList All(const char* sName) const { return m_values.value(sName); }
    QString First(const char* sName) const { return m_values.value(sName).value(0); }
    /** Each option with its argument, as they came. */
    const QVector<QPair<QString, QString>>& InOrder() const { return m_inOrder; }

private:
    QMap<QString, QStringList> m_values;
    QVector<QPair<QString, QString>> m_inOrder;
};

/** What --help of a sub-command prints. */
QString HelpOf(const char* sCommand, const char* sSummary, const QVector<SBatchOption>& options);
