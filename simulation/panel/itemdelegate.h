#pragma once

#include <QStyledItemDelegate>

/** Draws nodes with TreeShadeRole in italics and the muted text colour of whatever theme is in use. */
class CItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;
};
