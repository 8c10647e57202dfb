#pragma once

#include "view/selectables/surfaceselectable.h"

#include <functional>
#include <optional>

/**
 * Surfaces of one case that are edited together. A value is what they have in common, nothing where they
 * differ or where there are none. The group holds pointers: who keeps one removes what is deleted.
 */
class CSurfaceGroup
{
public:
    /** Those of the selectables that a surface dock can edit, of the case of the first one. */
    void Set(const QVector<ISelectable*>& selectables);
    /** The same beside those that are there, each once. */
    void Add(const QVector<ISelectable*>& selectables);
    bool Remove(const ISelectable* pSelectable); ///< false if it isn't one of them
    bool Contains(const ISelectable* pSelectable) const;
    bool IsEmpty() const { return m_surfaces.isEmpty(); }
    const QVector<CSurfaceSelectable*>& Surfaces() const { return m_surfaces; }
    qint64 SimulationId() const; ///< -1 for none

    static bool CanEdit(const ISelectable* pSelectable);

    /** What all give for a question to one of them. */
    template <class Question> auto Common(const Question& question) const
    {
        using Value = std::invoke_result_t<Question, const CSurfaceSelectable&>;
        if (m_surfaces.isEmpty())
            return std::optional<Value>();
        const Value first = question(*m_surfaces.first());
        for (const CSurfaceSelectable* const pSurface : m_surfaces)
            if (!(question(*pSurface) == first))
                return std::optional<Value>();
        return std::optional<Value>(first);
    }
    std::optional<int> Direction() const;
    std::optional<qint64> Constant() const;
    std::optional<qint64> Start(int nAxis) const;
    std::optional<qint64> End(int nAxis) const;
    /** Points that all blocks have in a direction; at least 1. */
    qint64 Size(int nAxis) const;
    /** The end that comes first and the start that comes last: no start or end can go across. */
    qint64 LeastEnd(int nAxis) const;
    qint64 GreatestStart(int nAxis) const;
    bool HasFixedPlane() const; ///< one of them has

    /** "Surface: [Zone %1]" with the name of the block. */
    QString Title() const;
    /** "%1 x %2 x %3 %4": points of the block and "[nodes]", or cells and "[cells]". */
    QString SizeText() const;

    // Edits. Each is a step of undo, or part of the one that is open, and tells whoever shows the surfaces.
    void SetDirection(int nDirection);
    void SetConstant(qint64 nValue);
    void SetStart(int nAxis, qint64 nValue);
    void SetEnd(int nAxis, qint64 nValue);
    void SetDisplayOnNodes(bool bOnNodes);
    /** Any other change of the display. */
    void Edit(const std::function<void(CSurfaceSelectable&)>& edit);

private:
    QVector<CSurfaceSelectable*> m_surfaces;
};
