#include "view/variablechoice.h"

#include "tests/view/dialogcase.h"

TEST(VariableChoice, AScalarThatIsChosenShowsOverItsRangeInTheCase)
{
    CDialogCase dialogCase;
    const QVector<ISelectable*> items = {&dialogCase.Item(0), &dialogCase.Item(1)};
    dialogCase.Drawable(0).setGeometricColor(true);
    const qint64 nEnergy = dialogCase.Variable("RE");
    const SValueRange range = CVariableManager::Instance().GetVariable(nEnergy)->GetGlobalRange(
        CDialogCase::VIEW, dialogCase.Id(), -1);
    EXPECT_EQ(VariableChoice::CommonVariable(items, &ISelectable::scalarVariable), dialogCase.Variable("R"));
    VariableChoice::SetScalar(items, nEnergy);
    EXPECT_TRUE(dialogCase.Drawable(0).usesColormap());
    EXPECT_EQ(dialogCase.Drawable(1).colormapRange(), QPointF(range.dMin, range.dMax));
    dialogCase.Drawable(1).setColormapValues(2.0, 3.0);
    VariableChoice::SetScalar(items, nEnergy); // the same again: a range that was set stays
    EXPECT_EQ(dialogCase.Drawable(1).colormapRange(), QPointF(2.0, 3.0));
    VariableChoice::SetScalar({items[0]}, -1);
    EXPECT_EQ(VariableChoice::CommonVariable(items, &ISelectable::scalarVariable), -1);
}

TEST(VariableChoice, AThresholdStartsWithNothingHidden)
{
    CDialogCase dialogCase;
    const qint64 nDensity = dialogCase.Variable("R");
    VariableChoice::SetThreshold({&dialogCase.Item(0)}, nDensity);
    EXPECT_TRUE(dialogCase.Drawable(0).thresholdEnable());
    EXPECT_LT(dialogCase.Drawable(0).thresholdRange().x(), dialogCase.Drawable(0).thresholdRange().y());
    VariableChoice::SetThreshold({&dialogCase.Item(0)}, -1);
    EXPECT_FALSE(dialogCase.Drawable(0).thresholdEnable());
}

TEST(VariableChoice, VectorsAndScalarsAreListedApart)
{
    CDialogCase dialogCase;
    const auto scalars = VariableChoice::ListedVariables(dialogCase.Id(), KindScalar);
    const auto vectors = VariableChoice::ListedVariables(dialogCase.Id(), KindVector);
    EXPECT_EQ(scalars.first(), dialogCase.Variable("Hole"));
    EXPECT_TRUE(vectors.contains(dialogCase.Variable("Velocity")));
    EXPECT_FALSE(scalars.contains(dialogCase.Variable("Velocity")));
}
