// The dialogs of variables and colormaps, and a legend, over a generated case, to look at:
// dialogs_demo [THEME [WINDOW]]: all of them, or one by its number from 0. Not run by ctest.
#include "data/variables/expressionvariable.h"
#include "frame/ui/messageboxprompt.h"
#include "frame/ui/sliders/rangecurrentslider.h"
#include "frame/ui/sliders/sliderwithvalue.h"
#include "frame/window/stylesheets.h"
#include "tests/support/testsettings.h"
#include "tests/view/dialogcase.h"
#include "view/dialogs/colormapdialog.h"
#include "view/dialogs/expressiondialog.h"
#include "view/dialogs/variabledialog.h"
#include "view/dialogs/vectordialog.h"

#include <QApplication>
#include <QPainter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

/** Paints the legend of an item as a view would. */
class CLegendWidget : public QWidget
{
public:
    explicit CLegendWidget(CAnnotationColormap& legend) : m_legend(legend)
    {
        setWindowTitle("Legend");
        resize(300, 340);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(105, 146, 182));
        m_legend.paint(&painter, 1.0);
    }

private:
    CAnnotationColormap& m_legend;
};

QWidget* MakeSliders()
{
    auto* const pWindow = new QWidget;
    pWindow->setWindowTitle("Sliders");
    auto* const pLayout = new QVBoxLayout(pWindow);
    auto* const pRange = new CRangeCurrentSlider;
    pRange->SetValues(0.2, 0.9);
    pRange->SetCurrentValue(0.5);
    auto* const pDisabled = new CRangeSlider;
    pDisabled->SetValues(0.2, 0.6);
    pDisabled->setEnabled(false);
    auto* const pSingle = new CSliderWithValue;
    pSingle->SetRange(-1.0, 1.0);
    pSingle->SetValue(0.25);
    for (QWidget* const pSlider : std::initializer_list<QWidget*>{pRange, pDisabled, pSingle})
        pLayout->addWidget(pSlider);
    pWindow->resize(300, 120);
    return pWindow;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    const CTestSettings settings;
    const int nTheme = argc > 1 ? atoi(argv[1]) : 0;
    ApplyThemeColors(nTheme);
    application.setStyleSheet(LoadStyleSheets("").value(nTheme));
    CMessageBoxPrompt prompt;
    UserPrompt::Install(&prompt);

    CDialogCase dialogCase;
    auto* const pFormula = new CExpressionVariable(dialogCase.Id(), true);
    pFormula->SetName("speed");
    pFormula->SetScope(CVariableManager::Instance().ListVariables(dialogCase.Id(), false));
    pFormula->SetExpression("sqrt(<RU>^2+<RV>^2)/<R>", false, false);
    pFormula->SetComment("a comment");

    CColormapDialog range(dialogCase.Id(), CDialogCase::VIEW, false);
    CColormapDialog legend(dialogCase.Id(), CDialogCase::VIEW, false);
    legend.findChild<QTabWidget*>()->setCurrentIndex(1);
    CVariableDialog manager(dialogCase.Id(), FaceManager);
    manager.SetVariableId(pFormula->GetId());
    CVariableDialog picker(dialogCase.Id(), FacePicker, KindScalar);
    picker.OfferNone();
    CExpressionDialog formula;
    formula.Load(dialogCase.Id(), LocationNode, pFormula->GetId(), false);
    CVectorDialog vectors(dialogCase.Id(), CDialogCase::VIEW);
    CAnnotationColormap& annotation = *dialogCase.Item(0).annotationColormap();
    annotation.setVisible(true);
    annotation.setBackgroundOutline(true);
    CLegendWidget legendWidget(annotation);
    const std::unique_ptr<QWidget> pSliders(MakeSliders());

    const std::pair<QWidget*, QPoint> windows[] = {
        {&range, {10, 30}},           {&legend, {10, 520}},        {&manager, {450, 30}},
        {&picker, {450, 540}},        {&formula, {880, 30}},       {&vectors, {880, 620}},
        {&legendWidget, {1210, 620}}, {pSliders.get(), {880, 830}}};
    const int nOnly = argc > 2 ? atoi(argv[2]) : -1;
    for (int n = 0; n < int(std::size(windows)); ++n) {
        if (nOnly >= 0 && n != nOnly)
            continue;
        windows[n].first->move(windows[n].second);
        windows[n].first->show();
    }
    return QApplication::exec();
}
