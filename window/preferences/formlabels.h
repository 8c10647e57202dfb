#pragma once

class QWidget;

/**
 * Makes the labels of all form layouts below the widget as wide as the widest of them, so that the fields of
 * several groups stand in one line. To be called again when the font has changed.
 */
void AlignFormLabels(QWidget* pWidget);
