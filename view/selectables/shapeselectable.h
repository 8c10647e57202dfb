#pragma once

#include "frame/packs/definition.h"
#include "view/selectables/selectable.h"

/**
 * A selectable each of whose drawables shows a shape. It owns their definitions and hands each to its
 * drawable (Drawable::setDefinition); in files the definition stands with the display of the drawable.
 */
template <class D, class Drawable> class CShapeSelectable : public CSelectable
{
protected:
    using CSelectable::CSelectable;

    const D& Definition(int n = 0) const { return m_definitions[n]; }
    void SetDefinition(const D& definition, int n = 0)
    {
        m_definitions[n] = definition;
        static_cast<Drawable*>(m_drawables[n])->setDefinition(definition);
    }
    /** A file says that this is what drawable n shows. */
    virtual void TakeDefinition(const D& read, int n) { SetDefinition(read, n); }

    /** Takes the drawable over, behind those that are there. */
    void AddShape(Drawable* pDrawable, const D& definition)
    {
        AddDrawable(pDrawable);
        m_definitions.append(definition);
        pDrawable->setDefinition(definition);
    }
    void RemoveLastShape()
    {
        RemoveLastDrawable();
        m_definitions.removeLast();
    }

    void WriteDrawable(int n, CByteWriter& writer) const override
    {
        Definitions::ToBytes(m_definitions[n], writer);
        writer.Write(m_drawables[n]->toBinary());
    }
    bool ReadDrawable(int n, const QByteArray& bytes, double dVersion) override
    {
        CByteReader reader(bytes);
        D read;
        QByteArray display;
        if (!Definitions::FromBytes(reader, read) || !reader.Read(display))
            return false;
        TakeDefinition(read, n);
        return m_drawables[n]->fromBinary(display, dVersion);
    }
    QJsonObject DrawableToJson(int n) const override
    {
        QJsonObject display = m_drawables[n]->toJson();
        Definitions::AddToJson(m_definitions[n], display);
        return display;
    }
    void DrawableFromJson(int n, const QJsonObject& display) override
    {
        D read = m_definitions[n];
        Definitions::FromJson(display, read);
        TakeDefinition(read, n);
        m_drawables[n]->fromJson(Definitions::Without<D>(display));
    }

private:
    QVector<D> m_definitions; // one for each drawable
};
