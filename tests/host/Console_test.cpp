#include "host/Console.h"

#include <gtest/gtest.h>

#include <string>

TEST(Console, FormatsAtAnyLengthAndItsSinkMayPrintAndReplaceItself) {
    const std::string longText(100000, 'x');
    std::string outer;
    testing::internal::CaptureStdout();
    EXPECT_EQ(utPrintf("%s: %d%%\n", "done", 42), 10);
    const auto original = host::redirectConsole([&](std::string_view text) { outer += text; });
    host::ConsoleSink before;
    before = host::redirectConsole([&before](std::string_view text) {
        host::redirectConsole(before);
        utPrintf("[%s]", std::string(text).c_str());
    });
    utPrintf("first");
    utPrintf("second");
    host::redirectConsole(original);
    EXPECT_EQ(utPrintf("<%s>", longText.c_str()), 100002);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "done: 42%\n<" + longText + ">");
    EXPECT_EQ(outer, "[first]second");
}
