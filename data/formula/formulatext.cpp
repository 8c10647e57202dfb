#include "data/formula/formulatext.h"

#include "frame/novalue.h"

#include <QHash>
#include <QLocale>
#include <QSet>

#include <cmath>

namespace {
constexpr int EXACT_DIGITS = 17; // tell any two doubles apart

/** A time, STEADY_TIME for an empty text; nothing if it is no number. */
std::optional<double> ParseTime(const QString& sTime)
{
    if (sTime.isEmpty())
        return STEADY_TIME;
    bool bOk = false;
    const double dTime = sTime.toDouble(&bOk);
    return bOk && !std::isnan(dTime) ? std::optional(dTime) : std::nullopt;
}

QString SimulationPrefix(const SReferencedVariable& variable, SReferenceForm form)
{
    return form.bSimulation ? QString("%1@").arg(variable.nSimulationId) : QString();
}

/** The variables that a reference may name, by the part of it that isn't a time. */
class CReferenceScope
{
public:
    CReferenceScope(const QVector<SReferencedVariable>& scope, SReferenceForm form) : m_form(form)
    {
        for (const SReferencedVariable& variable : scope) {
            const QString sKey = SimulationPrefix(variable, form) + variable.sName;
            if (!m_ids.contains(sKey))
                m_ids.insert(sKey, variable.nId);
        }
    }

    /** @param sReference what stands between "<" and ">" */
    std::optional<SFormulaInput> Find(const QString& sReference) const
    {
        const int nPrefixEnd = m_form.bSimulation ? sReference.indexOf('@') : -1;
        const bool bMayHaveTime = m_form.bTime && !(m_form.bSimulation && nPrefixEnd < 0);
        if (!bMayHaveTime)
            return Find(sReference, -1);
        for (const int nSeparator :
             {sReference.indexOf('@', nPrefixEnd + 1), sReference.lastIndexOf('@'), -1})
            if (const auto input = Find(sReference, nSeparator))
                return input;
        return {};
    }

private:
    /** @param nSeparator of the "@" ahead of the time, -1 for none */
    std::optional<SFormulaInput> Find(const QString& sReference, int nSeparator) const
    {
        const auto it = m_ids.constFind(sReference.left(nSeparator));
        const auto time = nSeparator < 0 ? STEADY_TIME : ParseTime(sReference.mid(nSeparator + 1));
        return it != m_ids.cend() && time ? std::optional(SFormulaInput{*it, *time}) : std::nullopt;
    }

    const SReferenceForm m_form;
    QHash<QString, qint64> m_ids;
};

/** Calls visit(nBegin, nEnd) for each "<...>" of the text, brackets included; "<>" isn't one. */
template <class Visit> void VisitReferences(const QString& sText, const Visit& visit)
{
    for (int nBegin = sText.indexOf('<'); nBegin >= 0;) {
        const int nEnd = sText.indexOf('>', nBegin);
        if (nEnd < 0)
            return;
        if (nEnd > nBegin + 1)
            visit(nBegin, nEnd + 1);
        nBegin = sText.indexOf('<', nEnd);
    }
}

/** The stored text with texts[n] in place of placeholders[n], in one pass, so that no new text is searched.
 */
QString ReplacePlaceholders(const QString& sStored, const QStringList& placeholders, const QStringList& texts)
{
    QHash<QString, int> positions;
    for (int n = placeholders.size() - 1; n >= 0; --n)
        positions.insert(placeholders[n], n);
    QString sResult;
    int nDone = 0;
    for (int nBegin = sStored.indexOf("ab"); nBegin >= 0; nBegin = sStored.indexOf("ab", nBegin)) {
        const int nEnd = sStored.indexOf("ab", nBegin + 2) + 2; // nothing within a placeholder reads "ab"
        const auto it = positions.constFind(sStored.mid(nBegin, std::max(0, nEnd - nBegin)));
        if (it == positions.cend()) {
            ++nBegin;
            continue;
        }
        sResult += sStored.mid(nDone, nBegin - nDone) + texts[*it];
        nDone = nBegin = nEnd;
    }
    return sResult + sStored.mid(nDone);
}
} // namespace

namespace FormulaText {

QString Reference(const SReferencedVariable& variable, double dTime, SReferenceForm form)
{
    const bool bShowTime = form.bTime && dTime != STEADY_TIME;
    return "<" + SimulationPrefix(variable, form) + variable.sName +
           (bShowTime ? "@" + QString::number(dTime, 'g', QLocale::FloatingPointShortest) : QString()) + ">";
}

QString Placeholder(const SFormulaInput& input)
{
    QString sTime = QString::number(std::abs(input.dTime), 'g', EXACT_DIGITS);
    sTime.replace('.', '_').replace("e-", "en").replace("e+", "e");
    return QString("ab%1ba%2%3ab").arg(input.nVariableId).arg(input.dTime < 0.0 ? 'm' : 'p').arg(sTime);
}

QStringList Placeholders(const QVector<SFormulaInput>& inputs)
{
    QStringList placeholders;
    for (const SFormulaInput& input : inputs)
        placeholders.append(Placeholder(input));
    return placeholders;
}

SBoundText BindReferences(const QString& sText, const QVector<SReferencedVariable>& scope,
                          SReferenceForm form)
{
    const CReferenceScope references(scope, form);
    SBoundText bound;
    QSet<QString> found;
    int nDone = 0;
    VisitReferences(sText, [&](int nBegin, int nEnd) {
        const auto input = references.Find(sText.mid(nBegin + 1, nEnd - nBegin - 2));
        if (!input)
            return;
        const QString sPlaceholder = Placeholder(*input);
        bound.sText += sText.mid(nDone, nBegin - nDone) + sPlaceholder;
        nDone = nEnd;
        if (!found.contains(sPlaceholder))
            bound.inputs.append(*input);
        found.insert(sPlaceholder);
    });
    bound.sText += sText.mid(nDone);
    return bound;
}

QVector<SFormulaInput> ParseReferences(const QString& sText, const QVector<SReferencedVariable>& scope,
                                       SReferenceForm form)
{
    return BindReferences(sText, scope, form).inputs;
}

QString ShowReferences(const QString& sStored, const QVector<SFormulaInput>& inputs,
                       const std::function<std::optional<SReferencedVariable>(qint64)>& find,
                       SReferenceForm form)
{
    QStringList texts;
    for (const SFormulaInput& input : inputs) {
        const auto variable = find(input.nVariableId);
        texts.append(variable ? Reference(*variable, input.dTime, form) : Placeholder(input));
    }
    return ReplacePlaceholders(sStored, Placeholders(inputs), texts);
}

QString ShowInputPositions(const QString& sStored, const QVector<SFormulaInput>& inputs)
{
    QStringList texts;
    for (int n = 0; n < inputs.size(); ++n)
        texts.append(QString("<%1>").arg(n));
    return ReplacePlaceholders(sStored, Placeholders(inputs), texts);
}

QString ReplaceInput(const QString& sStored, const SFormulaInput& from, const SFormulaInput& to)
{
    return ReplacePlaceholders(sStored, {Placeholder(from)}, {Placeholder(to)});
}

QString RemoveInput(const QString& sStored, const SFormulaInput& input)
{
    return ReplacePlaceholders(sStored, {Placeholder(input)}, {QString()});
}

bool IsReferenceName(const QString& sName)
{
    const auto isBarred = [](QChar c) { return QString("@<>. ").contains(c); };
    return !sName.isEmpty() && std::none_of(sName.begin(), sName.end(), isBarred);
}

} // namespace FormulaText
