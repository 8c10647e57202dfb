#pragma once

#include "view/tools/viewtool.h"

#include <optional>
#include <utility>

class CViewPointer;

/** Measures from the point that was pressed last to the one under the pointer, while its key is held. */
class CMeasureTool : public IViewTool
{
public:
    CMeasureTool(IToolView& view, CViewPointer& pointer) : m_view(view), m_pointer(pointer) {}

    bool Move(const SPointerEvent& event) override;
    bool Release(const SPointerEvent& event) override;
    bool Key(MouseAction_e eAction, bool bDown) override;
    /** The line goes; the next press measures from the same place. */
    void Cancel() override;

    /** The line to show, if there is one. */
    std::optional<std::pair<DVector3D, DVector3D>> Line() const;

private:
    void Follow();
    void Begin();

    IToolView& m_view;
    CViewPointer& m_pointer;
    std::optional<DVector3D> m_from; // the end that was pressed last
    std::optional<DVector3D> m_to;
    bool m_bShown = false; // from a press until its key is released
};
