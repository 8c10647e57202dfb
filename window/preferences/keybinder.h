#pragma once

#include "frame/packs/packkey.h"
#include "frame/ui/colorbutton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSignalBlocker>
#include <QSpinBox>

#include <functional>
#include <vector>

namespace KeyBinderDetail {

// For each kind of widget how it shows a value, what it holds, and the signal of a change by the user.
inline void Show(QSpinBox* pBox, qint64 nValue) { pBox->setValue(int(nValue)); }
inline void Show(QDoubleSpinBox* pBox, double dValue) { pBox->setValue(dValue); }
inline void Show(QCheckBox* pBox, bool bValue) { pBox->setChecked(bValue); }
inline void Show(QComboBox* pBox, qint64 nValue) { pBox->setCurrentIndex(int(nValue)); }
inline void Show(CColorButton* pButton, const QColor& value) { pButton->SetColor(value); }

inline qint64 Value(const QSpinBox* pBox) { return pBox->value(); }
inline double Value(const QDoubleSpinBox* pBox) { return pBox->value(); }
inline bool Value(const QCheckBox* pBox) { return pBox->isChecked(); }
inline qint64 Value(const QComboBox* pBox) { return pBox->currentIndex(); }
inline QColor Value(const CColorButton* pButton) { return pButton->GetColor(); }

inline auto Changed(QSpinBox*) { return qOverload<int>(&QSpinBox::valueChanged); }
inline auto Changed(QDoubleSpinBox*) { return qOverload<double>(&QDoubleSpinBox::valueChanged); }
inline auto Changed(QCheckBox*) { return &QCheckBox::toggled; }
inline auto Changed(QComboBox*) { return qOverload<int>(&QComboBox::currentIndexChanged); }
inline auto Changed(CColorButton*) { return &CColorButton::SignalColorChanged; }

} // namespace KeyBinderDetail

/**
 * Joins the widgets of a page with settings of a pack: what the user enters goes into the pack at once, Fill
 * shows what the pack holds. A value that a widget can only show rounded or limited stays as it is in the
 * pack until the user changes it.
 *
 * A combo box shows its setting as index. The pack must live as long as the widgets.
 */
class CKeyBinder
{
public:
    explicit CKeyBinder(CDataPack& pack) : m_pack(pack) {}

    template <class Widget, class T> void Bind(Widget* pWidget, const SKey<T>& key)
    {
        Bind(
            pWidget, key, [](const T& value) { return value; }, [](const T& value) { return value; });
    }

    /** As above, with other units or another order in the widget than in the pack. */
    template <class Widget, class T, class ToWidget, class ToPack>
    void Bind(Widget* pWidget, const SKey<T>& key, ToWidget toWidget, ToPack toPack)
    {
        m_fills.push_back([this, pWidget, &key, toWidget] {
            const QSignalBlocker blocker(pWidget);
            KeyBinderDetail::Show(pWidget, toWidget(Get(m_pack, key)));
        });
        QObject::connect(pWidget, KeyBinderDetail::Changed(pWidget), pWidget, [this, pWidget, &key, toPack] {
            Set(m_pack, key, toPack(KeyBinderDetail::Value(pWidget)));
        });
    }

    /** Shows in all widgets what the pack holds. */
    void Fill() const
    {
        for (const auto& fill : m_fills)
            fill();
    }

private:
    CDataPack& m_pack;
    std::vector<std::function<void()>> m_fills;
};
