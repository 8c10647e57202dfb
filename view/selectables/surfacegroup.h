#pragma once

#include "frame/commonvalue.h"
#include "view/selectables/surfaceselectable.h"

#include <functional>

/**
 * Surfaces of one case that are edited together. A value is what they have in common, nothing where they
 * differ or where there are none. The group holds pointers, so nobody keeps one.
 */
class CSurfaceGroup
{
public:
    /** @param selectables  of one case, such as can be edited */
    explicit CSurfaceGroup(const QVector<ISelectable*>& selectables);

    bool IsEmpty() const { return m_surfaces.isEmpty(); }
    const QVector<CSurfaceSelectable*>& Surfaces() const { return m_surfaces; }

    static bool CanEdit(const ISelectable& selectable);

    /** What all give for a question to one of them. */
    template <class Question> auto Common(const Question& question) const
    {
        return CommonValue(m_surfaces, question);
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

    // Edits. Each tells whoever shows the surfaces; the step of undo is the caller's.
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
