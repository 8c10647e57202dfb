#include "frame/userprompt.h"

#include "tests/support/promptscript.h"

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
