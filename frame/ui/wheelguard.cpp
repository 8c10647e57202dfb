#include "frame/ui/wheelguard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QSlider>

namespace {

class CWheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::Wheel || static_cast<QWidget*>(pObject)->hasFocus())
            return QObject::eventFilter(pObject, pEvent);
        pEvent->ignore(); // so that it goes on to the widget around this one
        return true;
    }
};

template <class Widget> void GuardAll(QWidget* pWidget, CWheelGuard* pGuard)
{
    for (Widget* const pChild : pWidget->findChildren<Widget*>()) {
        if (pChild->focusPolicy() == Qt::WheelFocus)
            pChild->setFocusPolicy(Qt::StrongFocus);
        pChild->installEventFilter(pGuard);
    }
}

} // namespace

void GuardFromWheel(QWidget* pWidget)
{
    auto* const pGuard = new CWheelGuard(pWidget);
    GuardAll<QAbstractSpinBox>(pWidget, pGuard);
    GuardAll<QComboBox>(pWidget, pGuard);
    GuardAll<QSlider>(pWidget, pGuard);
}
