#include "frame/ui/fontincrement.h"

#include "frame/preferencekeys.h"
#include "frame/preferences.h"

#include <QWidget>

namespace {

constexpr const char* BASE_SIZE = "zentoBasePointSize"; // dynamic property: size before any increment

using BaseSizes = QVector<QPair<QWidget*, int>>;

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
    const int nIncrement = static_cast<int>(Get(CPreferences::Instance(), PreferenceKey::FONT_INCREMENT));
    for (const auto& [pTarget, nBase] : sizes) {
        pTarget->setProperty(BASE_SIZE, nBase);
        QFont font = pTarget->font();
        font.setPointSize(std::max(1, nBase + nIncrement));
        pTarget->setFont(font);
    }
}
