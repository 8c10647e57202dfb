#pragma once

class QWidget;

/**
 * Makes the fonts of the widget and all widgets below it larger or smaller by the preference "Data.FontInc",
 * at least 1 point. It counts from the size that each widget had at its first call, so that it may be
 * called again after the preference has changed.
 */
void ApplyFontIncrement(QWidget* pWidget);
