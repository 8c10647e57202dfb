#pragma once

#include "view/tools/viewtool.h"

/** A rubber band, to zoom to what is in it or to select that. */
class CBandTool : public IViewTool
{
public:
    explicit CBandTool(IToolView& view) : m_view(view) {}

    bool Move(const SPointerEvent& event) override;
    bool Release(const SPointerEvent& event) override;
    void Paint(QPainter& painter) const override;

private:
    /** Empty while there is none. */
    QRect BandOf(const SPointerEvent& event) const;
    void ZoomTo(const QRect& band);
    void Select(const QRect& band, bool bWhole, bool bControl);

    IToolView& m_view;
};
