#include "data/variables/builtinvariables.h"

#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"
#include "data/variables/vectorvariable.h"

#include <map>
#include <utility>

namespace {

constexpr const char* GAS_COMMENT =
    "Seeded with a standard dry-air gas property because the solver did not report a valid one for this run. "
    "Edit this constant if you know the actual value.";
constexpr const char* FREE_STREAM_COMMENT = "Seeded with an assumed free-stream reference value because the "
                                            "solver setup did not report a valid one for "
                                            "this run. Edit this constant if you know the actual value.";
constexpr const char* EDITED_COMMENT = "Edited: differs from %1, the value of the case's files.";
constexpr const char* EDITED_ASSUMED_COMMENT =
    "Edited: differs from %1, the value assumed because the case's files have none.";
constexpr const char* ASSUMES_COMMENT = "Assumes %1 because the solver did not report valid values for this "
                                        "run. Review or edit the assumed constants "
                                        "in the Variables dialog.";
constexpr const char* ASSUMED_GAS = "standard dry-air gas properties (gamma = 1.4, R = 287.22 J/(kg.K))";
constexpr const char* ASSUMED_FREE_STREAM =
    "an assumed free-stream reference condition (Pinf / Rhoinf / Vinf)";

/** One definition; "{X}" stands for a reference to the variable X of the state, with its prefix. */
struct SDefinition
{
    const char* sName;
    const char* sFormula;
    bool b3DOnly = false;
};

const SDefinition CONSERVATIVE[] = {
    {"U[Q]", "{RU}/{R}"},
    {"V[Q]", "{RV}/{R}"},
    {"W[Q]", "{RW}/{R}", true},
    {"Vmag[Q]", "sqrt({RU} * {RU} + {RV} * {RV}[ + {RW} * {RW}]) / {R}"},
    {"P[Q]", "(<gamma> - 1) * ({RE} - 0.5 * ({RU} * {RU} + {RV} * {RV}[ + {RW} * {RW}]) / {R})"},
    {"T[Q]", "{P[Q]} / (<Rgas> * {R})"},
    {"C[Q]", "sqrt(<gamma> * <Rgas> * {T[Q]})"},
    {"M[Q]", "{Vmag[Q]} / {C[Q]}"},
    {"T0[Q]", "{T[Q]} * (1 + 0.5 * (<gamma> - 1) * {M[Q]} * {M[Q]})"},
    {"P0[Q]", "{P[Q]} * (1 + 0.5 * (<gamma> - 1) * {M[Q]} * {M[Q]})^(<gamma> / (<gamma> - 1))"},
    {"Rho0[Q]", "{R} * (1 + 0.5 * (<gamma> - 1) * {M[Q]} * {M[Q]})^(1 / (<gamma> - 1))"},
    {"Qd[Q]", "0.5 * {R} * {Vmag[Q]} * {Vmag[Q]}"},
    {"IntE[Q]", "{RE} / {R} - 0.5 * {Vmag[Q]} * {Vmag[Q]}"},
    {"H[Q]", "{IntE[Q]} + {P[Q]} / {R}"},
    {"H0[Q]", "{H[Q]} + 0.5 * {Vmag[Q]} * {Vmag[Q]}"},
    {"Cp[Q]", "({P[Q]} - <Pinf>) / (0.5 * <Rhoinf> * <Vinf> * <Vinf>)"},
};

/** Makes the definitions of one location of a case. */
class CDefiner
{
public:
    CDefiner(qint64 nSimulationId, VariableLocation_e eLocation, const QString& sPrefix, bool b3D,
             QString sComment)
        : m_nSimulationId(nSimulationId),
          m_eLocation(eLocation),
          m_sPrefix(sPrefix),
          m_b3D(b3D),
          m_sComment(std::move(sComment))
    {}

    qint64 Find(const QString& sName) const
    {
        return CVariableManager::Instance().FindByName(m_nSimulationId, sName, m_eLocation);
    }

    void Define(const SDefinition& definition)
    {
        if (!definition.b3DOnly || m_b3D)
            Define(m_sPrefix + definition.sName, Expanded(definition.sFormula));
    }

    void Define(const QString& sName, const QString& sFormula)
    {
        CVariableManager& manager = CVariableManager::Instance();
        IVariable* const pExisting = manager.GetVariable(Find(sName));
        if (pExisting && !pExisting->IsExpression())
            return; // the solution supplies it
        auto* pVariable = static_cast<CExpressionVariable*>(pExisting);
        if (!pVariable) {
            pVariable = new CExpressionVariable(m_nSimulationId, true);
            pVariable->SetName(sName);
            pVariable->SetUserVariable(false);
        }
        pVariable->SetScope(Scope(pVariable->GetId()));
        pVariable->SetExpression(sFormula, false, false);
        pVariable->SetComment(m_sComment);
        if (!pVariable->IsValid())
            manager.RemoveVariable(pVariable->GetId()); // it lacks an input
    }

    void DefineVector(const QString& sName, const std::array<QString, 3>& components)
    {
        std::array<qint64, 3> ids = {-1, -1, -1};
        for (int n = 0; n < 3; ++n)
            if (!components[n].isEmpty() && (n < 2 || m_b3D))
                ids[n] = Find(m_sPrefix + components[n]);
        if (IVariable* const pExisting = CVariableManager::Instance().GetVariable(Find(m_sPrefix + sName))) {
            if (auto* const pVector = dynamic_cast<CVectorVariable*>(pExisting))
                pVector->SetComponents(ids); // displays may know it by its id
            return;
        }
        auto* const pVector = new CVectorVariable(m_nSimulationId, ids, true);
        pVector->SetName(m_sPrefix + sName);
        pVector->SetLocation(m_eLocation);
        pVector->SetUserVariable(false);
    }

private:
    /** "{X}" becomes "<prefixX>"; what stands in "[ ... ]" behind a blank is of three dimensions alone. */
    QString Expanded(QString sFormula) const
    {
        const int nBegin = sFormula.indexOf("[ + ");
        const int nEnd = sFormula.indexOf("}]", nBegin);
        if (nBegin >= 0) {
            const QString sThird = m_b3D ? sFormula.mid(nBegin + 1, nEnd - nBegin) : QString();
            sFormula.replace(nBegin, nEnd + 2 - nBegin, sThird);
        }
        return sFormula.replace("{", "<" + m_sPrefix).replace("}", ">");
    }

    /** All that a formula here may name: variables of the location, and constants. */
    QVector<qint64> Scope(qint64 nOwnId) const
    {
        const CVariableManager& manager = CVariableManager::Instance();
        QVector<qint64> scope;
        for (const auto& pVariable : manager.GetVariables())
            if (pVariable->GetSimulationId() == m_nSimulationId && pVariable->GetId() != nOwnId &&
                (pVariable->GetLocation() == m_eLocation || pVariable->GetLocation() == LocationNone))
                scope.append(pVariable->GetId());
        return scope;
    }

    qint64 m_nSimulationId;
    VariableLocation_e m_eLocation;
    QString m_sPrefix;
    bool m_b3D;
    QString m_sComment;
};

QString CommentOf(const SReferenceState& reference)
{
    QStringList assumed;
    if (reference.bGasAssumed)
        assumed << ASSUMED_GAS;
    if (reference.bFreeStreamAssumed)
        assumed << ASSUMED_FREE_STREAM;
    return assumed.isEmpty() ? QString() : QString(ASSUMES_COMMENT).arg(assumed.join(" and "));
}

/** A constant of the case, with the value that it has now; one that the user has edited stays and says so. */
void DefineConstant(qint64 nSimulationId, const QString& sName, double dValue, const QString& sComment)
{
    CVariableManager& manager = CVariableManager::Instance();
    const QString sValue = QString::number(dValue, 'g', 12);
    IVariable* const pExisting = manager.GetVariable(manager.FindByName(nSimulationId, sName, LocationNone));
    if (pExisting && !pExisting->IsExpression())
        return; // the solution supplies it
    auto* pConstant = static_cast<CExpressionVariable*>(pExisting);
    if (pConstant && !pConstant->IsAsGiven() && pConstant->GetRawExpression() != sValue) {
        pConstant->SetComment(
            QString(sComment.isEmpty() ? EDITED_COMMENT : EDITED_ASSUMED_COMMENT).arg(sValue));
        return;
    }
    if (!pConstant) {
        pConstant = new CExpressionVariable(nSimulationId, true);
        pConstant->SetName(sName);
    }
    pConstant->SetGivenExpression(sValue);
    pConstant->SetComment(sComment);
}

void DefineConstants(qint64 nSimulationId, const SReferenceState& reference)
{
    const QString sGas = reference.bGasAssumed ? GAS_COMMENT : "";
    const QString sFreeStream = reference.bFreeStreamAssumed ? FREE_STREAM_COMMENT : "";
    DefineConstant(nSimulationId, "gamma", reference.dGamma, sGas);
    DefineConstant(nSimulationId, "Rgas", reference.dGasConstant, sGas);
    DefineConstant(nSimulationId, "Pinf", reference.dPressure, sFreeStream);
    DefineConstant(nSimulationId, "Rhoinf", reference.dDensity, sFreeStream);
    DefineConstant(nSimulationId, "Vinf", reference.dVelocity, sFreeStream);
}

} // namespace

void CreateConservativeVariables(qint64 nSimulationId, const QString& sPrefix,
                                 const SReferenceState& reference)
{
    for (const VariableLocation_e eLocation : {LocationNode, LocationCell}) {
        const auto has = [&](const char* sName) {
            return CVariableManager::Instance().FindByName(nSimulationId, sPrefix + sName, eLocation) != -1;
        };
        if (!has("R") || !has("RU") || !has("RV") || !has("RE"))
            continue;
        DefineConstants(nSimulationId, reference);
        CDefiner definer(nSimulationId, eLocation, sPrefix, has("RW"), CommentOf(reference));
        for (const SDefinition& definition : CONSERVATIVE)
            definer.Define(definition);
        definer.DefineVector("Velocity", {"U[Q]", "V[Q]", "W[Q]"});
        definer.DefineVector("Momentum", {"RU", "RV", "RW"});
    }
}

namespace {

/** The variables of a mean flow by their short names: "u", "p" ... to the name in the case. */
std::map<QString, QString> FindMeanflow(qint64 nSimulationId, VariableLocation_e eLocation)
{
    std::map<QString, QString> found;
    for (const auto& pVariable : CVariableManager::Instance().GetVariables()) {
        const QString sFullName = pVariable->GetName();
        if (pVariable->GetSimulationId() != nSimulationId || pVariable->GetLocation() != eLocation ||
            !pVariable->IsFileVariable())
            continue;
        const int nAt = sFullName.indexOf('@');
        const QString sGroup = nAt < 0 ? QString() : sFullName.mid(nAt + 1).section(';', 0, 0);
        if (!sGroup.startsWith("meanflow") && sGroup != "mf")
            continue;
        const QString sName = sFullName.left(nAt);
        for (const char* const sWanted : {"u", "v", "w", "mach"})
            if (sName == sWanted)
                found.emplace(sWanted, sFullName);
        for (const char* const sWanted : {"p", "T", "r"})
            if (sName == sWanted || sName.startsWith(QString(sWanted) + "-"))
                found.emplace(sWanted, sFullName);
    }
    return found;
}

/** The definitions of a mean flow at one location. */
void DefineMeanflow(CDefiner& definer, const std::map<QString, QString>& flow)
{
    const auto has = [&](const char* sName) { return flow.count(sName) != 0; };
    // What isn't there by name is what an earlier definition made; one that lacks an input isn't made.
    const auto ref = [&](const char* sName, const char* sMade) {
        return QString("<%1>").arg(has(sName) ? flow.at(sName) : QString(sMade));
    };
    const QString u = ref("u", "U[Q]"), v = ref("v", "V[Q]"), w = ref("w", "W[Q]");
    const QString p = ref("p", "P[Q]"), t = ref("T", "T[Q]"), r = ref("r", "Rho[Q]"), m = ref("mach", "M[Q]");
    const QString sThird = has("w") ? QString(" + %1 * %1").arg(w) : QString();
    const QString sStagnation = QString("(1 + 0.5 * (<gamma> - 1) * %1 * %1)").arg(m);
    definer.Define("Vmag[Q]", QString("sqrt(%1 * %1 + %2 * %2%3)").arg(u, v, sThird));
    if (!has("T") && has("p") && has("r"))
        definer.Define("T[Q]", QString("%1 / (<Rgas> * %2)").arg(p, r));
    definer.Define("C[Q]", QString("sqrt(<gamma> * <Rgas> * %1)").arg(t));
    if (!has("mach"))
        definer.Define("M[Q]", "<Vmag[Q]> / <C[Q]>");
    definer.Define("T0[Q]", t + " * " + sStagnation);
    definer.Define("P0[Q]", p + " * " + sStagnation + "^(<gamma> / (<gamma> - 1))");
    if (!has("r"))
        definer.Define("Rho[Q]", QString("%1 / (<Rgas> * %2)").arg(p, t));
    definer.Define("E[Q]", QString("%1 / (<gamma> - 1) + 0.5 * %2 * <Vmag[Q]> * <Vmag[Q]>").arg(p, r));
    definer.Define("Rho0[Q]", r + " * " + sStagnation + "^(1 / (<gamma> - 1))");
    definer.Define("Qd[Q]", QString("0.5 * %1 * <Vmag[Q]> * <Vmag[Q]>").arg(r));
    definer.Define("IntE[Q]", QString("%1 / ((<gamma> - 1) * %2)").arg(p, r));
    definer.Define("H[Q]", QString("<IntE[Q]> + %1 / %2").arg(p, r));
    definer.Define("H0[Q]", "<H[Q]> + 0.5 * <Vmag[Q]> * <Vmag[Q]>");
    definer.Define("Cp[Q]", QString("(%1 - <Pinf>) / (0.5 * <Rhoinf> * <Vinf> * <Vinf>)").arg(p));
}

} // namespace

void CreateMeanflowVariables(qint64 nSimulationId, const SReferenceState& reference)
{
    for (const VariableLocation_e eLocation : {LocationNode, LocationCell}) {
        const std::map<QString, QString> flow = FindMeanflow(nSimulationId, eLocation);
        if (flow.empty())
            continue;
        DefineConstants(nSimulationId, reference);
        CDefiner definer(nSimulationId, eLocation, "", flow.count("w") != 0, CommentOf(reference));
        DefineMeanflow(definer, flow);
        if (flow.count("u") && flow.count("v"))
            definer.DefineVector("Velocity",
                                 {flow.at("u"), flow.at("v"), flow.count("w") ? flow.at("w") : QString()});
    }
}
