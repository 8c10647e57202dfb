#pragma once

#include "frame/transform.h"
#include "scene/displaytype.h"

#include <QPointF>
#include <QVector>

#include <array>
#include <optional>
#include <vector>

class IDrawable;

enum FramePass_e { PassAll, PassSelected, PassHighlighted, PASS_COUNT };

/** How a frame shows what is selected and highlighted. */
enum FrameMarks_e {
    MarksHidden,  ///< not at all: a picture for others
    MarksInFront, ///< by its lines in front of all
    MarksOutlined ///< by a line round it
};

/** The drawables of one case, sorted by when they are drawn. */
struct SCaseScene
{
    static constexpr int TYPES = 7;
    using Bucket = std::vector<IDrawable*>;

    qint64 nSimulationId = -1;
    bool bDoubleWidth = false;
    QVector<STransform> views; ///< the view matrix with each display transform
    /** Of the first pass: by shader key (1, 2), opaque or not, display type. */
    std::array<std::array<std::array<Bucket, TYPES>, 2>, 2> buckets;
    /** Of the passes in front, by shader key. */
    std::array<std::array<Bucket, PASS_COUNT>, 2> marked;
    Bucket visible; ///< all of them

    const Bucket& At(int nKey, bool bOpaque, DisplayType_e eType) const
    {
        return buckets[nKey - 1][bOpaque ? 0 : 1][eType];
    }
    const Bucket& Marked(int nKey, FramePass_e ePass) const { return marked[nKey - 1][ePass]; }
};

/** Everything that is visible in a view, sorted once a frame. */
class CFrameScene
{
public:
    CFrameScene(qint64 nViewId, const DMatrix4x4& view, FrameMarks_e eMarks);

    FrameMarks_e Marks() const { return m_eMarks; }

    const std::vector<SCaseScene>& Cases() const { return m_cases; }
    bool IsEmpty() const;
    /** Something that the program draws is selected or highlighted. */
    bool HasMarked(int nKey) const;
    /** Something is shaded. */
    bool HasFilled() const;
    bool HasTransparent() const { return m_bTransparent; }
    /** Of the lines of what is shown [pixels]. */
    double ThickestLine() const { return m_dThickestLine; }

    /**
     * Least and greatest z of all that is drawn, in view coordinates; x > y without any. Positive z is
     * towards the eye.
     */
    QPointF DepthRange() const;
    /** Moves all of it in view coordinates. */
    void Move(const DVector3D& offset);

private:
    void Sort(IDrawable* pDrawable, SCaseScene& scene);

    const FrameMarks_e m_eMarks;
    bool m_bTransparent = false;
    double m_dThickestLine = 0.0;
    std::vector<SCaseScene> m_cases;
};

/** Whether the drawable has something to draw inside of the rectangle; a box that isn't known has. */
bool IsInRectangle(const IDrawable& drawable, const DMatrix4x4& view, double dLeft, double dRight,
                   double dTop, double dBottom);

/** The box of what was built is known. */
bool HasBox(const IDrawable& drawable);

using BoxCorners = std::array<DVector3D, 8>;

/**
 * The corners of its box, which is known, in the coordinates of the matrix.
 *
 * @param dReach  by which the box is larger on each side [units of the box]
 */
BoxCorners CornersOf(const IDrawable& drawable, const DMatrix4x4& toView, double dReach = 0.0);
