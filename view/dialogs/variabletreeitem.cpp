#include "view/dialogs/variabletreeitem.h"

#include "data/variables/ivariable.h"
#include "frame/themeicon.h"
#include "frame/ui/fontincrement.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int ICON_SIZE = 16; // [pixels], as the next
constexpr int MARK_SIZE = 11;
constexpr int SEPARATOR_HEIGHT = 9;
constexpr double SEPARATOR_STRENGTH = 0.35;
constexpr int SEPARATOR_ROLE = Qt::UserRole;
constexpr const char* LOCATION_ICONS[] = {":/Icons/const.png", ":/Icons/nodes.png", ":/Icons/cellcenter.png"};

/** The icon with a sign in its corner that there is something to know. */
QIcon WithWarning(const QIcon& icon)
{
    const QRect corner(ICON_SIZE - MARK_SIZE, ICON_SIZE - MARK_SIZE, MARK_SIZE, MARK_SIZE);
    const QIcon warning = ThemeIcon(":/Icons/warning.png");
    QIcon marked;
    for (const QIcon::Mode eMode : {QIcon::Normal, QIcon::Selected}) {
        QPixmap pixmap = icon.pixmap(ICON_SIZE, eMode);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(corner, Qt::black); // the lines below would make the sign hard to see
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawPixmap(corner, warning.pixmap(MARK_SIZE, eMode));
        painter.end();
        marked.addPixmap(pixmap, eMode);
    }
    return marked;
}

QIcon IconOf(const IVariable& variable)
{
    const QIcon icon = ThemeIcon(LOCATION_ICONS[variable.GetLocation()]);
    return variable.HasComment() ? WithWarning(icon) : icon;
}

bool IsSeparator(const QModelIndex& index)
{
    return index.sibling(index.row(), 0).data(SEPARATOR_ROLE).toBool();
}

bool HasShownChild(const QTreeWidgetItem& item)
{
    for (int n = 0; n < item.childCount(); ++n)
        if (!item.child(n)->isHidden())
            return true;
    return false;
}

/** Draws separators as a line across all columns. */
class CSeparatorDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        if (!IsSeparator(index)) {
            QStyledItemDelegate::paint(pPainter, option, index);
            return;
        }
        QColor color = option.palette.color(QPalette::Active, QPalette::Text);
        color.setAlphaF(SEPARATOR_STRENGTH);
        pPainter->fillRect(option.rect.left(), option.rect.center().y(), option.rect.width(), 1, color);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return IsSeparator(index) ? QSize(size.width(), SEPARATOR_HEIGHT) : size;
    }
};

} // namespace

CVariableTreeItem::CVariableTreeItem(const IVariable& variable)
    : m_nVariableId(variable.GetId()), m_eGroup(GroupOf(&variable))
{
    setText(0, variable.GetName());
    setIcon(0, IconOf(variable));
    setToolTip(0, variable.GetComment());
    ApplyItemFont(this, 0);
}

CVariableTreeItem::CVariableTreeItem(VariableGroup_e eGroup, const QString& sHead) : m_eGroup(eGroup)
{
    setText(0, sHead);
    setFlags(Qt::ItemIsEnabled);
    ApplyItemFont(this, 0);
}

CVariableTreeItem::CVariableTreeItem(VariableGroup_e eGroup) : m_eGroup(eGroup), m_bSeparator(true)
{
    setFlags(Qt::NoItemFlags);
    setData(0, SEPARATOR_ROLE, true);
}

bool CVariableTreeItem::IsDescending() const
{
    return treeWidget() && treeWidget()->header()->sortIndicatorOrder() == Qt::DescendingOrder;
}

// A list that is sorted downwards asks the other way round; the groups must not turn with it.
bool CVariableTreeItem::operator<(const QTreeWidgetItem& other) const
{
    const auto& row = static_cast<const CVariableTreeItem&>(other);
    if (m_eGroup != row.m_eGroup)
        return (m_eGroup < row.m_eGroup) != IsDescending();
    if (m_bSeparator != row.m_bSeparator)
        return m_bSeparator != IsDescending();
    const int nColumn = treeWidget() ? std::max(treeWidget()->sortColumn(), 0) : 0;
    return text(nColumn) < row.text(nColumn);
}

void VariableTree::SetUp(QTreeWidget& tree) { tree.setItemDelegate(new CSeparatorDelegate(&tree)); }

void VariableTree::AddSeparators(QTreeWidgetItem& parent)
{
    QVector<int> groups;
    for (int n = 0; n < parent.childCount(); ++n) {
        const int nGroup = static_cast<CVariableTreeItem*>(parent.child(n))->GetGroup();
        if (!groups.contains(nGroup))
            groups.append(nGroup);
    }
    std::sort(groups.begin(), groups.end());
    for (int n = 1; n < groups.size(); ++n)
        parent.addChild(new CVariableTreeItem(VariableGroup_e(groups[n])));
}

void VariableTree::Filter(QTreeWidgetItem& parent, const QString& sText)
{
    QVector<int> shownGroups;
    for (int n = 0; n < parent.childCount(); ++n) {
        auto* const pRow = static_cast<CVariableTreeItem*>(parent.child(n));
        Filter(*pRow, sText);
        const bool bShown = pRow->GetVariableId() == -1 ? HasShownChild(*pRow)
                                                        : pRow->text(0).contains(sText, Qt::CaseInsensitive);
        pRow->setHidden(!bShown);
        if (bShown)
            shownGroups.append(pRow->GetGroup());
    }
    const int nFirst = shownGroups.isEmpty() ? 0 : *std::min_element(shownGroups.begin(), shownGroups.end());
    for (int n = 0; n < parent.childCount(); ++n) {
        auto* const pRow = static_cast<CVariableTreeItem*>(parent.child(n));
        if (pRow->IsSeparator())
            pRow->setHidden(!shownGroups.contains(pRow->GetGroup()) || pRow->GetGroup() == nFirst);
    }
}

CVariableTreeItem* VariableTree::FindRow(const QTreeWidget& tree, qint64 nVariableId)
{
    for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it; ++it)
        if (auto* const pRow = static_cast<CVariableTreeItem*>(*it);
            nVariableId != -1 && pRow->GetVariableId() == nVariableId)
            return pRow;
    return nullptr;
}
