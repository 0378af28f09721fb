#include "ui/screens/shell/DisplayFailure.h"

#include <gtest/gtest.h>

TEST(DisplayFailure, endsTheProgramWithASentenceAtAFatalMessage)
{
    const auto fail = [] {
        const DisplayFailure failure;
        qFatal("no display");
    };
    EXPECT_EXIT(fail(), testing::ExitedWithCode(EXIT_FAILURE), "^vesk: no window can be opened: ");
}

TEST(DisplayFailure, lesserMessagesAreWrittenAsEver)
{
    const auto warn = [] {
        const DisplayFailure failure;
        qWarning("no theme of that name");
        std::_Exit(EXIT_SUCCESS);
    };
    EXPECT_EXIT(warn(), testing::ExitedWithCode(EXIT_SUCCESS), "no theme of that name");
}
