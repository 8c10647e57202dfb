#pragma once

#include <QString>

/** What a case knows of its gas and its free stream. */
struct SReferenceState
{
    double dGamma = 1.4;          ///< ratio of heats
    double dGasConstant = 287.22; ///< [J/(kg K)], or as the case counts
    double dPressure = 1.0 / 1.4; ///< free stream, as the case counts
    double dDensity = 1.0;
    double dVelocity = 1.0;
    bool bGasAssumed = false;        ///< gamma or gas constant are not the case's own
    bool bFreeStreamAssumed = false; ///< one of the other three is not
};

/**
 * Defines the variables that follow from the conservative state ("R", "RU", "RV", "RW", "RE" with the prefix
 * ahead of each name): velocity, pressure, temperature, Mach number and so on, at nodes and at cell centres
 * where the state is there. Without "RW" the case is two-dimensional. A variable of the name that exists is
 * taken and its formula replaced. Never fails: what lacks an input isn't made.
 */
void CreateConservativeVariables(qint64 nSimulationId, const QString& sPrefix,
                                 const SReferenceState& reference);

/**
 * The same from a mean flow: the file variables of the groups "meanflow..." and "mf" named "u", "v", "w",
 * "mach", "p" (or "p-..."), "T" (or "T-...") and "r" (or "r-..."); the name is what stands ahead of the first
 * "@", the group what stands behind it up to a ";". What the solution supplies itself stays as it is.
 */
void CreateMeanflowVariables(qint64 nSimulationId, const SReferenceState& reference);
