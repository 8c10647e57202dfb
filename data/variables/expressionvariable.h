#pragma once

#include "data/variables/ivariable.h"

#include <memory>

class CFormula;

/**
 * A variable defined by a formula over others, "<RU>/<R>". Without inputs it is a constant. A formula that
 * doesn't compile leaves the variable in place, not valid, and all its values read NO_VALUE.
 */
class CExpressionVariable : public IVariable
{
public:
    CExpressionVariable(qint64 nSimulationId, bool bAddToManager);

    QByteArray ToBytes() const override;
    void ReplaceInput(qint64 nOldId, qint64 nNewId) override;
    void RemoveInput(qint64 nId) override;

    /** The variables that a reference may name; set ahead of SetExpression. */
    void SetScope(const QVector<qint64>& ids) { m_scope = ids; }
    /**
     * Compiles the text and takes its references as inputs.
     *
     * @param bSimulations  references name their simulation, "<2@R>"
     * @param bTimes        references may name a time, "<R@0.5>"
     * @return whether it compiled; GetErrorPosition tells where it didn't. A text in which a variable would
     *         come to rest on this one isn't taken.
     */
    bool SetExpression(const QString& sText, bool bSimulations, bool bTimes) override;
    QString GetExpressionText(bool bSimulations, bool bTimes) const override;
    /** As SetExpression; a later edit can be told from what the case itself gave. Without references. */
    bool SetGivenExpression(const QString& sText);
    /** The text stands as the case gave it. */
    bool IsAsGiven() const { return !m_sGivenText.isEmpty() && m_sText == m_sGivenText; }
    /** The stored text, with placeholders. */
    QString GetRawExpression() const { return m_sText; }
    /** First character of the given text that doesn't fit, from 1; 0 if it compiled. */
    int GetErrorPosition() const { return m_nErrorPosition; }
    /** Null if it didn't compile. */
    std::shared_ptr<const CFormula> GetFormula() const { return GetRecipe().pFormula; }

    double EvaluateScalar(const double* pInputs, qint64 nCount, bool bVectors) const override;
    DVector3D EvaluateVector(const double* pInputs, qint64 nCount, bool bVectors) const override;

private:
    bool Compile();
    void TakeLocationAndKind();

    QVector<qint64> m_scope;
    QString m_sText;
    QString m_sGivenText; // of the case's own; empty for one of the user
    int m_nErrorPosition = 0;
};
