#pragma once

#include "frame/packs/dataproperty.h"

/**
 * A property sheet: a pack in text mode with an ordered list of rows. The constructor of the owning class
 * adds the rows; a file only brings their values.
 *
 * Values are set through SetProperty, which tells the derived class, and only of what changed.
 */
class CDataPropertyPack : public CDataProperty
{
public:
    /** The base's stream, then the rows; docs/formats/datapack.md. */
    QByteArray ToBytes() const override;
    /**
     * Replaces the content of the base; a stored row is assigned over the row of its name, and ignored where
     * the sheet has none. Rows that aren't stored stay. No hook is called.
     */
    bool FromBytes(const QByteArray& bytes, double dVersion) override;

    /** Appends the row; one with the same name is replaced in its place. */
    virtual void AddProperty(const CDataProperty& property);
    /** Called before SetProperty writes, whether or not anything changes then. Does nothing here. */
    virtual void PropertyAboutToChange(QString sName);
    /** Called when SetProperty has changed the key of the row. Does nothing here; derived classes recompute.
     */
    virtual void PropertyChanged(QString sName, QString sKey);

    /**
     * The row of the name; without one an empty row that isn't part of the sheet: what is written into it is
     * gone at the next such look-up. The reference is valid until rows are added.
     */
    CDataProperty& FindProperty(const QString& sName);
    const CDataProperty& FindProperty(const QString& sName) const;
    /** The rows in their order. */
    const QVector<CDataProperty>& Properties() const { return m_rows; }

    /** Sets a key of the row between the two hooks. The value is of any type that CDataProperty::SetValue
     * takes. */
    template <class T>
    void SetProperty(const QString& sName, const T& value, const QString& sKey = PropertyKey::VALUE)
    {
        PropertyAboutToChange(sName);
        CDataProperty& row = FindProperty(sName); // after the hook, which may add rows
        row.SetValue(value, sKey);
        if (row.LastSetChanged())
            PropertyChanged(sName, sKey);
    }

private:
    int RowIndex(const QString& sName) const;
    bool ReadRow(const QByteArray& bytes, double dVersion);

    CDataProperty m_fallback; // what a look-up that finds nothing gives
    QVector<CDataProperty> m_rows;
};
