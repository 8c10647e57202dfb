#pragma once

#include "frame/vector3d.h"
#include "simulation/displaytransforms.h"

#include <QByteArray>
#include <QJsonObject>
#include <QVector>

class ISimulation;

/** What a view shows of a case whose items are shown by their selectables (docs/formats/casefiles.md). */
struct SViewState
{
    /** What belongs to the pair of view and simulation. */
    struct SPair
    {
        double dTime = -1.0;
        bool bTransient = false;
        DVector3D rotationCentre;
        SMirrorSetting mirror;
        SSectorSetting sectors;
    };
    /** A selectable. */
    struct SShown
    {
        qint64 nItemId = -1;
        qint64 nKind = -1;   ///< SelectableKind_e
        qint64 nPartId = -1; ///< of the item; -1: the whole
        QString sName;       ///< of its item or part, and of the item that this one stands under:
        QString sParentName; ///< by these it is found in a case whose items have other ids
        bool bVisible = true;
        bool bSelected = false;
        QByteArray display; ///< ISelectable::toBinary

        friend bool operator==(const SShown&, const SShown&) = default;
    };

    SPair pair;
    QVector<SShown> shown; ///< in the order in which they were made, which is that of drawing
    QJsonObject unknown;   ///< what a display file said of the view and this version doesn't know

    QByteArray ToBytes() const;
    /** False for bytes that end early or hold counts that can't be. */
    bool FromBytes(const QByteArray& bytes);
};

/** The state as it is now. */
SViewState TakeViewState(const ISimulation& simulation, qint64 nViewId);

/**
 * Shows the state. Items are found by id, or, in a stored state, by kind and names; what users make and isn't
 * there is made under its block. What the state doesn't name stays; what the case doesn't have is left out,
 * which the log says.
 *
 * @param dVersion  of the stored state; SESSION_VERSION for one of this session, which finds its items by id
 * alone and leaves the time where it is. Entries of kinds that aren't known stay with the view.
 */
void ApplyViewState(ISimulation& simulation, const SViewState& state, qint64 nViewId, double dVersion);

/** The version of states that never leave the session: undo, views that follow each other. */
inline constexpr double SESSION_VERSION = -1.0;
