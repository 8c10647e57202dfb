#pragma once

class QString;
class QTreeWidget;

/**
 * Hides the nodes that don't pass; an empty text passes all. A node passes if one of its columns contains the
 * text (in any case), one below it passes, or one above it contains the text; of a category its name counts.
 * A category of which nothing is left is hidden too. The way to what passes is opened.
 */
void FilterTree(QTreeWidget& tree, const QString& sText);
