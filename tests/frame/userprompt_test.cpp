#include "frame/userprompt.h"

#include "tests/support/files.h"
#include "tests/support/promptscript.h"

#include <QTemporaryDir>

TEST(UserPrompt, WithoutAUserNothingIsConfirmedAndNoFileIsChosen)
{
    EXPECT_FALSE(UserPrompt::Confirm("Delete Items", "Would you like to delete the selected items?"));
    EXPECT_FALSE(UserPrompt::Tell(PromptCritical, "Error!", "Failed"));
    EXPECT_TRUE(UserPrompt::AskFile({"Open", "", "", false}).isEmpty());
    EXPECT_EQ(UserPrompt::Ask({PromptQuestion, "t", "x", {"Save As...", "Close", "Cancel"}, 0, 2}), 2);
}

TEST(UserPrompt, AScriptAnswersInOrderAndLeavesAtItsEnd)
{
    {
        CPromptScript user;
        user.Press("Yes");
        user.Press("No");
        EXPECT_TRUE(UserPrompt::Confirm("first", ""));
        EXPECT_FALSE(UserPrompt::Confirm("second", ""));
        EXPECT_EQ(user.Asked()[1].sTitle, "second");
    }
    EXPECT_FALSE(UserPrompt::Confirm("third", ""));
}

TEST(UserPrompt, AFileThatOnlyTheEndingNamesIsReplacedIfTheUserSaysSo)
{
    const QTemporaryDir folder;
    const QString sThere = Files::Write(folder.filePath("wing.zento"));
    SFilePrompt prompt{"Save", "", "", true};
    prompt.sEnding = ".zento";
    CPromptScript user;
    const auto answer = [&](const QString& sName) {
        user.ChooseFile(sName.isEmpty() ? sName : folder.filePath(sName));
        return UserPrompt::AskFile(prompt);
    };
    EXPECT_EQ(answer("wing.zento"), sThere) << "the dialog has asked about it";
    EXPECT_EQ(answer("WING.ZENTO"), folder.filePath("WING.ZENTO"));
    EXPECT_EQ(answer("new"), folder.filePath("new.zento"));
    EXPECT_EQ(answer(""), "");
    EXPECT_TRUE(user.Asked().isEmpty());
    user.ChooseFile(folder.filePath("wing"));
    user.Press("No");
    EXPECT_EQ(answer("other"), folder.filePath("other.zento")) << "the dialog comes again";
    user.Press("Yes");
    EXPECT_EQ(answer("wing"), sThere);
    EXPECT_EQ(user.Asked().last().sText, "wing.zento already exists.\nDo you want to replace it?");
}
