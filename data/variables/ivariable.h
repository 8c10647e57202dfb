#pragma once

#include "data/formula/fieldrecipe.h"
#include "data/values/valuerange.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

#include <mutex>
#include <optional>

/**
 * A named quantity: what it is and how it is computed. It holds no numbers: those of one block at one time
 * are an ISolution, which CSolutionManager makes. This class by itself is the file variable, whose values
 * stand in files; derived ones are computed of inputs. CVariableManager owns all.
 *
 * Variables belong to the main thread. What fields need of them they publish as recipes, which any thread may
 * use.
 */
class IVariable
{
public:
    /** @param bAddToManager  hands the variable to CVariableManager, which gives it an id */
    IVariable(qint64 nSimulationId, bool bAddToManager);
    virtual ~IVariable();
    IVariable(const IVariable&) = delete;
    IVariable& operator=(const IVariable&) = delete;

    /**
     * The key: the variable's identity across sessions, without ids and file paths. A display state stores
     * it and finds the same variable with MatchesBytes.
     */
    virtual QByteArray ToBytes() const;
    virtual bool MatchesBytes(const QByteArray& bytes) const { return bytes == ToBytes(); }

    qint64 GetId() const { return m_recipe.nVariableId; }
    void SetId(qint64 nId) { Change(&SFieldRecipe::nVariableId, nId); }
    qint64 GetSimulationId() const { return m_recipe.nSimulationId; }
    void SetSimulationId(qint64 nId) { Change(&SFieldRecipe::nSimulationId, nId); }
    const SFieldRecipe& GetRecipe() const { return m_recipe; }
    QString GetName() const { return m_sName; }
    void SetName(const QString& sName) { m_sName = sName; }
    bool IsListed() const { return m_bListed; } ///< the variable dialog shows it
    void SetListed(bool bListed) { m_bListed = bListed; }
    bool IsUserVariable() const { return m_bUserVariable; } ///< false: built-in, shown read-only
    void SetUserVariable(bool bUser) { m_bUserVariable = bUser; }
    bool IsGridVariable() const { return m_recipe.bOfGrid; } ///< a coordinate of the grid
    void SetGridVariable(bool bGrid) { Change(&SFieldRecipe::bOfGrid, bGrid); }
    qint32 GetTag() const { return m_nTag; } ///< part of the key only
    VariableKind_e GetKind() const { return m_recipe.eKind; }
    VariableLocation_e GetLocation() const { return m_recipe.eLocation; }
    void SetLocation(VariableLocation_e eLocation) { Change(&SFieldRecipe::eLocation, eLocation); }
    bool IsValid() const { return m_bValid; } ///< false: it can't be evaluated
    bool IsFileVariable() const { return m_recipe.bOfFile; }
    void SetFileVariable(bool bFile) { Change(&SFieldRecipe::bOfFile, bFile); }
    bool IsConstant() const; ///< depends on no file
    bool IsExpression() const { return m_recipe.bFormula; }
    virtual bool IsGradientScalar() const { return false; }
    bool IsHoleVariable() const { return m_bHole; } ///< 0.0 marks a blanked point
    void SetHoleVariable(bool bHole) { m_bHole = bHole; }
    QString GetComment() const { return m_sComment; }
    void SetComment(const QString& sComment) { m_sComment = sComment; }
    bool HasComment() const { return !m_sComment.isEmpty(); }

    /** Tells whoever shows the variable, and its dependants, to build anew. */
    void OnVariableChanged();
    /** Tells whoever shows the variable to let go of it. */
    void OnVariableRemoved();
    /** True if an input is of a fixed time, here or further down. */
    bool IsTimeDependent() const;
    const QVector<SVariableInput>& GetInputs() const { return m_recipe.inputs; }
    /** Ids of the inputs, each once; with bRecursive those of their inputs too. */
    QVector<qint64> GetAllInputs(bool bRecursive) const;
    /** The owner, then the owners of all inputs, each once. */
    QVector<qint64> GetSimulations() const;
    virtual void ReplaceInput(qint64 nOldId, qint64 nNewId);
    virtual void RemoveInput(qint64) {}
    /** Ids of all variables that read this one. */
    QVector<qint64> GetDependants(bool bRecursive) const;
    bool DependsOn(qint64 nId) const { return GetAllInputs(true).contains(nId); }

    /**
     * Over the live points of the simulation's blocks (nItemId -1: all) at the time that the view shows.
     * Kept until InvalidateRange. Nothing without values, and where a block can't be read.
     */
    std::optional<SValueRange> GetGlobalRange(qint64 nViewId, qint64 nSimulationId, qint64 nItemId);
    void InvalidateRange(); ///< of this variable and of all that read it

    /** Formulas only (CExpressionVariable). */
    virtual bool SetExpression(const QString&, bool, bool) { return false; }
    virtual QString GetExpressionText(bool, bool) const { return {}; }

    /**
     * The value at one point. pInputs holds one value an input, or three with bVectors; components that a
     * formula doesn't tell apart are equal. A file variable gives 0: it is never evaluated.
     */
    virtual double EvaluateScalar(const double* pInputs, qint64 nCount, bool bVectors) const;
    double EvaluateScalarConstant() const { return EvaluateVectorConstant().x; }
    virtual DVector3D EvaluateVector(const double* pInputs, qint64 nCount, bool bVectors) const;
    /** NO_VALUE where the variable isn't a constant. */
    DVector3D EvaluateVectorConstant() const;
    /** The same into the caller's place. */
    void EvaluateInto(const double* pInputs, qint64 nCount, bool bVectors, DVector3D& out) const
    {
        out = EvaluateVector(pInputs, nCount, bVectors);
    }
    void EvaluateConstantInto(DVector3D& out) const { out = EvaluateVectorConstant(); }

protected:
    void SetKind(VariableKind_e eKind) { Change(&SFieldRecipe::eKind, eKind); }
    void SetValid(bool bValid) { m_bValid = bValid; }
    void SetInputs(const QVector<SVariableInput>& inputs) { Change(&SFieldRecipe::inputs, inputs); }
    /** Changes the recipe, for later requests; fields that are out keep theirs. */
    template <class T> void Change(T SFieldRecipe::*member, const T& value)
    {
        if (m_recipe.*member == value)
            return;
        m_recipe.*member = value;
        Publish();
    }

private:
    void CollectInputs(bool bRecursive, QVector<qint64>& ids) const;
    void Publish() const;
    void ForgetRanges();

    SFieldRecipe m_recipe;
    QString m_sName = "NONAME";
    bool m_bListed = true;
    bool m_bUserVariable = true;
    qint32 m_nTag = 0;
    bool m_bValid = true;
    bool m_bHole = false;
    QString m_sComment;
    std::mutex m_rangeMutex;
    QMap<QString, SValueRange> m_ranges; // by simulation, time, item and restarts of data
};
