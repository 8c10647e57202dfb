#pragma once

#include "view/tools/viewtool.h"

class CViewPointer;

/** Tells of the point under the pointer, while its key is held or in the mode that picks points; there a
 * click chooses it. */
class CPickTool : public IViewTool
{
public:
    CPickTool(IToolView& view, CViewPointer& pointer) : m_view(view), m_pointer(pointer) {}

    bool Move(const SPointerEvent& event) override;
    bool Release(const SPointerEvent& event) override;
    bool Key(MouseAction_e eAction, bool bDown) override;

private:
    bool IsOn() const { return m_view.State().eMode == MousePointPick; }

    IToolView& m_view;
    CViewPointer& m_pointer;
};
