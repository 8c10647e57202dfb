#pragma once

class QWidget;

/**
 * Keeps the wheel from changing spin boxes, combo boxes and sliders below the widget that don't have the
 * focus: the wheel is for scrolling past them then, and doesn't give them the focus either. For widgets that
 * exist at the call.
 */
void GuardFromWheel(QWidget* pWidget);
