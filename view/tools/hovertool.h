#pragma once

#include "view/tools/viewtool.h"

class CViewPointer;

/** Highlights what lies under the pointer of the active view; a click selects it, a double click opens it. */
class CHoverTool : public IViewTool
{
public:
    CHoverTool(IToolView& view, CViewPointer& pointer) : m_view(view), m_pointer(pointer) {}

    bool Move(const SPointerEvent& event) override;
    bool Release(const SPointerEvent& event) override;
    bool DoubleClick(const SPointerEvent& event) override;
    bool Key(MouseAction_e eAction, bool bDown) override;
    void Leave() override;

private:
    void Hover();
    void Show();

    IToolView& m_view;
    CViewPointer& m_pointer;
};
