#include "view/dialogs/variabledialog.h"

#include "data/variables/expressionvariable.h"
#include "tests/support/promptscript.h"
#include "tests/view/dialogcase.h"
#include "view/dialogs/expressiondialog.h"
#include "view/dialogs/variabletreeitem.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

class VariableDialogs : public testing::Test
{
protected:
    CExpressionVariable* Make(const QString& sName, const QString& sText)
    {
        auto* const pVariable = new CExpressionVariable(m_case.Id(), true);
        pVariable->SetName(sName);
        pVariable->SetScope(CVariableManager::Instance().ListVariables(m_case.Id(), false));
        EXPECT_TRUE(pVariable->SetExpression(sText, false, false));
        return pVariable;
    }
    static QPushButton* Button(QWidget& dialog, const char* sName)
    {
        return dialog.findChild<QPushButton*>(sName);
    }
    /** The rows on show from the top, a separator as "-". */
    static QStringList Rows(const QTreeWidgetItem& parent)
    {
        QStringList rows;
        for (int n = 0; n < parent.childCount(); ++n) {
            const auto& row = *static_cast<CVariableTreeItem*>(parent.child(n));
            if (!row.isHidden())
                rows.append(row.IsSeparator() ? "-" : row.text(0));
        }
        return rows;
    }
    static QTreeWidget& Tree(QWidget& dialog) { return *dialog.findChild<QTreeWidget*>(); }
    static QStringList Rows(QWidget& dialog) { return Rows(*Tree(dialog).invisibleRootItem()); }
    static bool Exists(qint64 nId) { return CVariableManager::Instance().GetVariable(nId); }

    CDialogCase m_case;
};

} // namespace

TEST_F(VariableDialogs, RowsStandByGroupInEitherDirectionOfTheSort)
{
    Make("zz", "<R>");
    Make("aa", "<R>");
    CVariableDialog dialog(m_case.Id(), FacePicker, KindScalar);
    QStringList rows = Rows(dialog);
    EXPECT_EQ(rows.first(), "Hole");
    EXPECT_EQ(rows.mid(rows.size() - 3), QStringList({"-", "aa", "zz"}));
    EXPECT_FALSE(rows.contains("Velocity")); // a vector
    EXPECT_EQ(rows.count("-"), 3);
    Tree(dialog).sortByColumn(0, Qt::DescendingOrder);
    rows = Rows(dialog);
    EXPECT_EQ(rows.first(), "Z");
    EXPECT_EQ(rows.mid(rows.size() - 3), QStringList({"-", "zz", "aa"}));
}

TEST_F(VariableDialogs, TheFilterKeepsWhatHoldsTheText)
{
    Make("Mine", "<R>");
    CVariableDialog dialog(m_case.Id(), FacePicker);
    dialog.SetVariableId(m_case.Variable("R"));
    EXPECT_TRUE(Button(dialog, "m_pOKB")->isEnabled());
    dialog.findChild<QLineEdit*>()->setText("MIN");
    EXPECT_EQ(Rows(dialog), QStringList{"Mine"});
    EXPECT_FALSE(Button(dialog, "m_pOKB")->isEnabled()); // the selected row is out of sight
}

TEST_F(VariableDialogs, APickerHandsBackTheVariableOrNone)
{
    CVariableDialog dialog(m_case.Id(), FacePicker);
    dialog.SetVariableId(m_case.Variable("RU"));
    emit Tree(dialog).itemDoubleClicked(Tree(dialog).currentItem(), 0);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.GetVariableId(), m_case.Variable("RU"));
    EXPECT_TRUE(Button(dialog, "m_pNoneB")->isHidden());
    dialog.OfferNone();
    Button(dialog, "m_pNoneB")->click();
    EXPECT_EQ(dialog.GetVariableId(), -1);
}

TEST_F(VariableDialogs, ButtonsOfTheManagerFollowTheSelection)
{
    const qint64 nUser = Make("mine", "<R>")->GetId();
    CVariableDialog dialog(m_case.Id(), FaceManager);
    struct
    {
        qint64 nId;
        bool bEdit, bDelete;
        const char* sText;
    } const rows[] = {{m_case.Variable("R"), false, false, "Edit"},
                      {m_case.Variable("P[Q]"), true, true, "Show"},
                      {m_case.Variable("Velocity"), false, true, "Show"},
                      {nUser, true, true, "Edit"}};
    for (const auto& row : rows) {
        dialog.SetVariableId(row.nId);
        EXPECT_EQ(Button(dialog, "m_pEditB")->isEnabled(), row.bEdit) << row.nId;
        EXPECT_EQ(Button(dialog, "m_pEditB")->text(), row.sText) << row.nId;
        EXPECT_EQ(Button(dialog, "m_pDeleteB")->isEnabled(), row.bDelete) << row.nId;
    }
    CPromptScript user;
    user.Press("Ok");
    dialog.SetVariableId(m_case.Variable("R"));
    emit Tree(dialog).itemDoubleClicked(Tree(dialog).currentItem(), 0);
    EXPECT_EQ(user.Asked().first().sText, "'R' is not a calculated variable and cannot be edited.\n"
                                          "Use Create to define a new calculated variable.");
}

TEST_F(VariableDialogs, DeletionAsksAndTakesWhatIsBuiltOnItAlong)
{
    const qint64 nFirst = Make("first", "<R>")->GetId(), nSecond = Make("second", "<first>")->GetId();
    CVariableDialog dialog(m_case.Id(), FaceManager);
    dialog.SetVariableId(nFirst);
    CPromptScript user;
    user.Press("No");
    user.Press("Yes");
    QTest::keyClick(&Tree(dialog), Qt::Key_Delete);
    EXPECT_TRUE(Exists(nFirst));
    Button(dialog, "m_pDeleteB")->click();
    EXPECT_FALSE(Exists(nFirst) || Exists(nSecond));
    EXPECT_FALSE(Rows(dialog).contains("second"));
    EXPECT_EQ(user.Asked().first().sText, "Would you like to delete the variable first?\n"
                                          "This action will also delete any variable using it");
}

TEST_F(VariableDialogs, AFormulaIsMadeWithReferencesFromTheList)
{
    CExpressionDialog dialog;
    dialog.Load(m_case.Id(), LocationNode, -1, false);
    auto* const pText = dialog.findChild<QPlainTextEdit*>();
    Button(dialog, "m_pSqrtB")->click();
    emit Tree(dialog).itemActivated(VariableTree::FindRow(Tree(dialog), m_case.Variable("R")), 0);
    Button(dialog, "m_pMultiplyB")->click();
    Button(dialog, "m_p2B")->click();
    EXPECT_EQ(pText->toPlainText(), "sqrt(<R>*2)");
    CPromptScript user;
    user.Press("Ok");
    auto* const pName = dialog.findChild<QLineEdit*>("m_pVariableNameE");
    pName->setText("R"); // taken
    Button(dialog, "m_pOKB")->click();
    EXPECT_EQ(user.Asked().first().sTitle, "Invalid Name");
    EXPECT_EQ(dialog.GetVariableId(), -1);
    pName->setText("root");
    Button(dialog, "m_pOKB")->click();
    const IVariable* const pMade = CVariableManager::Instance().GetVariable(dialog.GetVariableId());
    ASSERT_TRUE(pMade && pMade->IsValid());
    EXPECT_EQ(pMade->GetLocation(), LocationNode);
    EXPECT_EQ(CPreferences::Instance().StoredVariables().value(0).sFormula, "sqrt(<R>*2)");
}

TEST_F(VariableDialogs, WhatRestsOnTheVariableCantBeReferredTo)
{
    const qint64 nFirst = Make("first", "<R>")->GetId();
    Make("second", "<first>");
    CExpressionDialog dialog;
    dialog.Load(m_case.Id(), LocationNode, nFirst, false);
    const QStringList rows = Rows(*Tree(dialog).topLevelItem(0));
    EXPECT_TRUE(rows.contains("RU") && rows.contains("gamma"));
    EXPECT_FALSE(rows.contains("first") || rows.contains("second") || rows.contains("Velocity"));
    EXPECT_EQ(Tree(dialog).topLevelItem(0)->text(0), QString("(%1): wing").arg(m_case.Id()));
}

TEST_F(VariableDialogs, ReferencesAreWrittenAnewWhereTheFormHasRoom)
{
    CExpressionDialog dialog;
    dialog.Load(m_case.Id(), LocationNode, Make("a", "<R>*2")->GetId(), false);
    auto* const pText = dialog.findChild<QPlainTextEdit*>();
    auto* const pSimulations = dialog.findChild<QCheckBox*>("m_pSimulationCompareCB");
    auto* const pTimes = dialog.findChild<QCheckBox*>("m_pTimeCompareCB");
    pSimulations->click();
    EXPECT_EQ(pText->toPlainText(), QString("<%1@R>*2").arg(m_case.Id()));
    EXPECT_EQ(Rows(*Tree(dialog).invisibleRootItem()).last(), "(0): Compare");
    pSimulations->click();
    EXPECT_EQ(pText->toPlainText(), "<R>*2");
    pTimes->click();
    pText->setPlainText("<R@0.5>*2");
    EXPECT_TRUE(dialog.findChild<QLabel*>("m_pMessageL")->text().isEmpty());
    pTimes->click(); // the time would be lost: the text stays, and the fault is shown
    EXPECT_EQ(pText->toPlainText(), "<R@0.5>*2");
    EXPECT_TRUE(dialog.findChild<QLabel*>("m_pMessageL")->text().contains("character 1"));
}

TEST_F(VariableDialogs, OnlyAFormulaCanBeAcceptedAndTheDialogSaysWhy)
{
    CExpressionDialog dialog;
    dialog.Load(m_case.Id(), LocationNode, -1, false);
    auto* const pText = dialog.findChild<QPlainTextEdit*>();
    const auto fault = [&](const char* sText) {
        pText->setPlainText(sText);
        const QString sFault = dialog.findChild<QLabel*>("m_pMessageL")->text();
        EXPECT_EQ(Button(dialog, "m_pOKB")->isEnabled(), sFault.isEmpty()) << sText;
        return sFault;
    };
    EXPECT_EQ(fault("  "), "Enter a formula");
    EXPECT_TRUE(fault("<R>*").contains("character 5"));
    EXPECT_TRUE(fault("<nothing>").contains("Not a formula"));
    EXPECT_EQ(fault("<R>*2"), "");
}

TEST_F(VariableDialogs, ARangeTakenFromAFormulaFollowsIt)
{
    const qint64 nId = Make("mine", "0/0*<R>")->GetId(), nReader = Make("reader", "<mine>+1")->GetId();
    const auto change = [&](const char* sText) {
        CExpressionDialog dialog;
        dialog.Load(m_case.Id(), LocationNode, nId, false);
        dialog.findChild<QPlainTextEdit*>()->setPlainText(sText);
        Button(dialog, "m_pOKB")->click();
    };
    const auto global = [&](qint64 nVariable) {
        const std::optional<SValueRange> range =
            CVariableManager::Instance().GetVariable(nVariable)->GetGlobalRange(CDialogCase::VIEW,
                                                                                m_case.Id(), -1);
        return range ? QPointF(range->dMin, range->dMax) : QPointF();
    };
    m_case.Item(0).setScalarVariable(nId); // keeps the range of what it showed before: this one has none
    m_case.Item(1).setScalarVariable(nReader);
    change("2*<R>");
    EXPECT_EQ(m_case.Drawable(0).colormapRange(), global(nId));
    EXPECT_EQ(m_case.Drawable(1).colormapRange(), global(nReader));
    m_case.Item(1).setColormapValues(5.0, 7.0);
    change("3*<R>");
    EXPECT_EQ(m_case.Drawable(0).colormapRange(), global(nId));
    EXPECT_EQ(m_case.Drawable(1).colormapRange(), QPointF(5.0, 7.0)) << "the user's own";
}

TEST_F(VariableDialogs, WhatIsBuiltInCanOnlyBeRead)
{
    CExpressionDialog dialog;
    dialog.Load(m_case.Id(), LocationNode, m_case.Variable("P[Q]"), true);
    EXPECT_EQ(dialog.windowTitle(), "Show Variable");
    const QString sText = dialog.findChild<QPlainTextEdit*>()->toPlainText();
    EXPECT_FALSE(sText.isEmpty());
    Button(dialog, "m_p1B")->click();
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->toPlainText(), sText);
    EXPECT_FALSE(Button(dialog, "m_pOKB")->isEnabled());
    EXPECT_TRUE(Button(dialog, "m_pCancelB")->isEnabled());
}
