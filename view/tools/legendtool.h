#pragma once

#include "view/tools/viewtool.h"

class CAnnotation;

/** Drags the legends of a view, frames the one that a press would take hold of, and opens its editor. */
class CLegendTool : public IViewTool
{
public:
    explicit CLegendTool(IToolView& view) : m_view(view) {}

    bool Press(const SPointerEvent& event) override;
    bool Move(const SPointerEvent& event) override;
    bool Release(const SPointerEvent& event) override;
    bool DoubleClick(const SPointerEvent& event) override;
    void Leave() override { ShowHot(nullptr); }
    void Cancel() override { m_pDragged = nullptr; }

private:
    CAnnotation* At(const QPoint& position) const;
    bool IsShown(const CAnnotation* pAnnotation) const;
    void ShowHot(const CAnnotation* pHot);

    IToolView& m_view;
    CAnnotation* m_pDragged = nullptr;
    QPoint m_grip; // from its place to the pointer
};
