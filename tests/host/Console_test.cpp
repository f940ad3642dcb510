#include "host/Console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Console, FormatsAsPrintfDoesAtAnyLength) {
    const std::string longText(100000, 'x');
    testing::internal::CaptureStdout();
    EXPECT_EQ(utPrintf("%s: %d%%\n", "done", 42), 10);
    EXPECT_EQ(utPrintf("<%s>", longText.c_str()), 100002);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "done: 42%\n<" + longText + ">");
}

TEST(Console, SinkMayPrintAndReplaceItself) {
    std::string outer;
    const auto original = host::redirectConsole([&](std::string_view text) { outer += text; });
    host::ConsoleSink before;
    before = host::redirectConsole([&before](std::string_view text) {
        host::redirectConsole(before);
        utPrintf("[%s]", std::string(text).c_str());
    });
    utPrintf("first");
    utPrintf("second");
    host::redirectConsole(original);
    EXPECT_EQ(outer, "[first]second");
}

}  // namespace
