#include "view/dialogs/colormapdialog.h"

#include "frame/ui/sliders/rangeslider.h"
#include "tests/support/promptscript.h"
#include "tests/view/dialogcase.h"
#include "view/colormaps/colormapedit.h"
#include "view/colormaps/colormaptables.h"
#include "view/dialogs/vectordialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace {

class ColormapDialog : public testing::Test
{
protected:
    template <class Widget> Widget* Find(CColormapDialog& dialog, const char* sName)
    {
        auto* const pWidget = dialog.findChild<Widget*>(sName);
        EXPECT_TRUE(pWidget) << sName;
        return pWidget;
    }
    void Type(CColormapDialog& dialog, const char* sName, const QString& sText)
    {
        auto* const pBox = Find<QLineEdit>(dialog, sName);
        pBox->setText(sText);
        emit pBox->editingFinished();
    }
    void Choose(CColormapDialog& dialog, const char* sName, int nIndex)
    {
        auto* const pBox = Find<QComboBox>(dialog, sName);
        pBox->setCurrentIndex(nIndex);
        emit pBox->activated(nIndex);
    }
    CTestSurface& SetValues(int nItem, const std::vector<double>& values)
    {
        auto& surface = static_cast<CTestSurface&>(m_case.Drawable(nItem));
        surface.m_values = values;
        surface.invalidateAll();
        return surface;
    }
    QPointF Range(int nItem) { return m_case.Drawable(nItem).colormapRange(); }
    CAnnotationColormap& Annotation(int nItem) { return *m_case.Item(nItem).annotationColormap(); }

    CDialogCase m_case;
};

} // namespace

TEST_F(ColormapDialog, EditsReachAllItemsAtOnceAndCancelTakesThemBack)
{
    m_case.Drawable(1).setColormapBindToLocal(true);
    m_case.Drawable(1).setColormapValues(2.0, 3.0);
    const auto before = m_case.Drawable(1).colormap();
    CColormapDialog dialog(m_case.Id(), CDialogCase::VIEW, false);
    Type(dialog, "m_pMinE", "20");
    Type(dialog, "m_pMaxE", "30");
    Choose(dialog, "m_pColormapCB", ColormapId("Viridis"));
    Find<QCheckBox>(dialog, "m_pShowLegendCB")->click();
    Find<QLineEdit>(dialog, "m_pTitleE")->setText("Density");
    for (int n = 0; n < 2; ++n) {
        EXPECT_EQ(Range(n), QPointF(20, 30));
        EXPECT_EQ(m_case.Drawable(n).colormapType(), ColormapId("Viridis"));
        EXPECT_TRUE(Annotation(n).isVisible());
        EXPECT_EQ(Annotation(n).settings().title.sText, "Density");
    }
    EXPECT_FALSE(m_case.Drawable(1).colormapBindToLocal()); // it would go ahead of the range
    Find<QPushButton>(dialog, "m_pCancelB")->click();
    EXPECT_EQ(m_case.Drawable(1).colormap(), before);
    EXPECT_TRUE(m_case.Drawable(1).colormapBindToLocal());
    EXPECT_EQ(Range(0), QPointF(0, 1));
    EXPECT_FALSE(Annotation(0).isVisible());
    EXPECT_TRUE(Annotation(0).settings().title.sText.isEmpty());
}

TEST_F(ColormapDialog, RangesOfTheCaseAndOfTheItemsCanBeTakenAgainAndAgain)
{
    m_case.Item(1).setSelected(false);
    SetValues(0, {1.0, 2.0, 3.0, 4.0});
    CColormapDialog dialog(m_case.Id(), CDialogCase::VIEW, false);
    const SValueRange all = ColormapEdit::CaseRange({&m_case.Item(0)});
    const SValueRange block = ColormapEdit::ItemsRange({&m_case.Item(0)});
    ASSERT_TRUE(!all.IsEmpty() && !block.IsEmpty() && !(all == block));
    for (int nTimes = 0; nTimes < 2; ++nTimes) {
        Choose(dialog, "m_pRangeCB", 1);
        EXPECT_EQ(Range(0), QPointF(all.dMin, all.dMax));
        EXPECT_EQ(Find<QComboBox>(dialog, "m_pRangeCB")->currentIndex(), 0);
    }
    EXPECT_EQ(Find<QLineEdit>(dialog, "m_pMaxE")->text(), QString::number(all.dMax, 'g', 10));
    Choose(dialog, "m_pRangeCB", 2);
    EXPECT_EQ(Find<CRangeSlider>(dialog, "m_pRangeSlider")->GetMaxValue(), block.dMax);
    EXPECT_EQ(Range(1), QPointF(0, 1)); // not selected
    Find<QPushButton>(dialog, "m_pOKB")->click();
    EXPECT_EQ(Range(0), QPointF(block.dMin, block.dMax));
}

TEST_F(ColormapDialog, ARangeOfItemsCountsWhatIsShownWithAValueAndFollowsTheHoles)
{
    CTestSurface& surface = SetValues(0, {NO_VALUE, 2.0, 3.0, 4.0});
    surface.m_mask = {1.0, 1.0, 1.0, 0.0};
    surface.setColormapBindToLocal(true);
    const QVector<ISelectable*> items = {&m_case.Item(0)};
    EXPECT_EQ(ColormapEdit::ItemsRange(items), (SValueRange{2.0, 3.0}));
    EXPECT_EQ(surface.colormapRange(), QPointF(2.0, 3.0));
    surface.setShowHoles(false);
    EXPECT_EQ(ColormapEdit::ItemsRange(items), (SValueRange{2.0, 4.0}));
    EXPECT_EQ(surface.colormapRange(), QPointF(2.0, 4.0));
}

TEST_F(ColormapDialog, WithoutAnEditOfTheRangeOkLeavesEachItemItsOwn)
{
    m_case.Drawable(1).setColormapValues(2.0, 3.0);
    m_case.Drawable(1).setScalarVariable(m_case.Variable("RE"));
    CColormapDialog dialog(m_case.Id(), CDialogCase::VIEW, false);
    EXPECT_EQ(Find<QLineEdit>(dialog, "m_pTitleE")->text(), "various variables");
    Type(dialog, "m_pMinE", "no number");
    EXPECT_EQ(Find<QLineEdit>(dialog, "m_pMinE")->text(), "0");
    Find<QPushButton>(dialog, "m_pOKB")->click();
    EXPECT_EQ(Range(0), QPointF(0, 1));
    EXPECT_EQ(Range(1), QPointF(2, 3));
    EXPECT_TRUE(Annotation(1).settings().title.sText.isEmpty()); // what was shown isn't what was set
}

TEST_F(ColormapDialog, InvertedColorsStaySo)
{
    m_case.Drawable(0).setColormapValues(3.0, 2.0);
    CColormapDialog dialog(m_case.Id(), CDialogCase::VIEW, false);
    EXPECT_EQ(Find<QLineEdit>(dialog, "m_pMinE")->text(), "2");
    Type(dialog, "m_pMaxE", "5");
    EXPECT_EQ(Range(0), QPointF(5, 2));
    EXPECT_EQ(Range(1), QPointF(2, 5)) << "this one wasn't";
    m_case.Drawable(0).setColormapValues(4.0, 4.0);
    EXPECT_GT(Range(0).x(), 4.0);
}

TEST_F(ColormapDialog, AColorOrFontThatIsCancelledChangesNothing)
{
    CPromptScript user;
    user.ChooseColor(QColor());
    user.ChooseColor(Qt::green);
    user.ChooseFont(std::nullopt);
    user.ChooseFont(QFont("Serif", 20));
    CColormapDialog dialog(m_case.Id(), CDialogCase::VIEW, false);
    const SLegendSettings before = Annotation(0).settings();
    Find<QToolButton>(dialog, "m_pTitleColorB")->click();
    EXPECT_EQ(Annotation(0).settings(), before);
    Find<QToolButton>(dialog, "m_pTitleColorB")->click();
    EXPECT_EQ(Annotation(1).settings().title.color, QColor(Qt::green));
    Find<QToolButton>(dialog, "m_pLabelFontB")->click();
    EXPECT_EQ(Annotation(0).settings().labels.font, before.labels.font);
    Find<QToolButton>(dialog, "m_pLabelFontB")->click();
    EXPECT_EQ(Annotation(1).settings().labels.font.pointSize(), 20);
}

TEST_F(ColormapDialog, VectorSettingsGoToTheSelectedItems)
{
    m_case.Drawable(0).setVectorPlane(999999);
    m_case.Item(1).setSelected(false);
    CVectorDialog dialog(m_case.Id(), CDialogCase::VIEW);
    EXPECT_EQ(dialog.findChild<QComboBox*>("m_pPlaneCB")->currentIndex(), 0);
    dialog.findChild<QComboBox*>("m_pPlaneCB")->setCurrentIndex(4);
    dialog.findChild<QDoubleSpinBox*>("m_pHeadScaleE")->setValue(2.5);
    EXPECT_EQ(m_case.Drawable(0).vectorPlane(), 4);
    EXPECT_EQ(m_case.Drawable(0).vectorHeadScale(), 2.5);
    EXPECT_EQ(m_case.Drawable(1).vectorPlane(), 0);
}
