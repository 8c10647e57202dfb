#pragma once

#include "view/drawables/surfacedrawable.h"
#include "view/selectables/shapeselectable.h"

/**
 * An index plane of a block, an item of the case under that block. The plane of a new selectable is that of
 * its item; setters change the selectable's own and apply hands it on: to the item, which later views start
 * from, and to whoever shows the item. Addresses are one-based, both ends included.
 */
class CSurfaceSelectable : public CShapeSelectable<SSurfacePlane, CSurfaceDrawable>
{
    Q_OBJECT

public:
    CSurfaceSelectable(const CItem& item, qint64 nViewId, SelectableKind_e eKind = KindSurface);

    /** "Surface K = 3 [Block 1]". */
    QString name() const override;
    QJsonObject toJsonBlock() const override;
    bool fromJsonBlock(const QJsonObject& block) override;

    const SSurfacePlane& plane() const { return Definition(); }
    /** The plane is given by the case and no setter changes it. */
    virtual bool hasFixedPlane() const { return false; }

    int constantDirection() const { return plane().nDirection; } ///< 0 I, 1 J, 2 K
    /** A new direction takes the whole range of the block; one that isn't 0 to 2 is ignored. */
    void setConstantDirection(int nDirection);
    SIJKRange ranges() const { return {plane().start, plane().end}; }
    /** What the block doesn't have is cut off. */
    void setRanges(const IVector3D& start, const IVector3D& end);
    /** The index in the constant direction. */
    qint64 constantValue() const { return plane().constants[plane().nDirection]; }
    void setConstantValue(qint64 nValue);
    IVector3D startIndices() const { return plane().start; }
    IVector3D endIndices() const { return plane().end; }
    /** A begin behind the end, or an end ahead of the begin, changes nothing. */
    void setStartIndices(const IVector3D& start);
    void setEndIndices(const IVector3D& end);
    /** Point counts of the block; zeros if it is gone. */
    IVector3D gridDimensions() const;
    void apply();

    QString blockName() const;

protected:
    void TakeDefinition(const SSurfacePlane& read, int n) override;
    SIJKRange NodesInBlock(const SBlockShape& nodes) const override;
    /** The letter of the constant direction. */
    QString DirectionLetter() const { return QString(QChar("IJK"[plane().nDirection])); }

private:
    void TakePlane(const SSurfacePlane& plane);
    SSurfacePlane InBlock(const SSurfacePlane& plane) const;
    void FillColumns();
};

/** A boundary of the case: a part of a face, where the case says. Its name is the item's own. */
class CBoundarySurfaceSelectable : public CSurfaceSelectable
{
    Q_OBJECT

public:
    CBoundarySurfaceSelectable(const CItem& item, qint64 nViewId);
    QString name() const override { return CSelectable::name(); }
    bool hasFixedPlane() const override { return true; }
};

/** A face of a block that stands for itself: "Face K [Block 1]". */
class CFaceSelectable : public CSurfaceSelectable
{
    Q_OBJECT

public:
    CFaceSelectable(const CItem& item, qint64 nViewId);
    QString name() const override;
    bool hasFixedPlane() const override { return true; }
};
