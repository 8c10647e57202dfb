#include "frame/ui/fontincrement.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

#include <QTableWidget>
#include <QTreeWidget>
#include <QWidget>

namespace {

constexpr const char* BASE_SIZE = "zentoBasePointSize"; // dynamic property: size before any increment
constexpr int BASE_SIZE_ROLE = Qt::UserRole + 1000;     // the same of an item

using BaseSizes = QVector<QPair<QWidget*, int>>;

int Incremented(int nBase)
{
    const qint64 nIncrement = Get(CPreferences::Instance(), PreferenceKey::FONT_INCREMENT);
    return static_cast<int>(std::max<qint64>(1, nBase + nIncrement));
}

/** A font whose size is set in pixels has no points (-1) to add to, and stays. */
QFont WithIncrement(QFont font, int nBase)
{
    if (nBase > 0)
        font.setPointSize(Incremented(nBase));
    return font;
}

// All sizes are read before the first is set: a child that has no font of its own follows its parent.
void CollectBaseSizes(QWidget* pWidget, BaseSizes& sizes)
{
    const QVariant base = pWidget->property(BASE_SIZE);
    sizes.append({pWidget, base.isValid() ? base.toInt() : pWidget->font().pointSize()});
    for (QObject* const pChild : pWidget->children())
        if (pChild->isWidgetType())
            CollectBaseSizes(static_cast<QWidget*>(pChild), sizes);
}

} // namespace

void ApplyFontIncrement(QWidget* pWidget)
{
    BaseSizes sizes;
    CollectBaseSizes(pWidget, sizes);
    for (const auto& [pTarget, nBase] : sizes) {
        pTarget->setProperty(BASE_SIZE, nBase);
        pTarget->setFont(WithIncrement(pTarget->font(), nBase));
    }
}

void ApplyItemFont(QTreeWidgetItem* pItem, int nColumn)
{
    const QVariant base = pItem->data(nColumn, BASE_SIZE_ROLE);
    const int nBase = base.isValid() ? base.toInt() : pItem->font(nColumn).pointSize();
    pItem->setData(nColumn, BASE_SIZE_ROLE, nBase);
    pItem->setFont(nColumn, WithIncrement(pItem->font(nColumn), nBase));
}

void ApplyTableFont(QTableWidgetItem* pItem, int nColumn)
{
    if (nColumn >= 0)
        pItem = pItem->tableWidget() ? pItem->tableWidget()->item(pItem->row(), nColumn) : nullptr;
    if (!pItem)
        return;
    const QVariant base = pItem->data(BASE_SIZE_ROLE);
    const int nBase = base.isValid() ? base.toInt() : pItem->font().pointSize();
    pItem->setData(BASE_SIZE_ROLE, nBase);
    pItem->setFont(WithIncrement(pItem->font(), nBase));
}
