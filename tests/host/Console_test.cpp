#include "host/Console.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

/// Collects what is printed while it lives.
class ConsoleCapture {
public:
    ConsoleCapture() {
        m_previous =
            host::redirectConsole([this](std::string_view text) { texts.emplace_back(text); });
    }
    ~ConsoleCapture() { host::redirectConsole(m_previous); }

    std::vector<std::string> texts;

private:
    host::ConsoleSink m_previous;
};

TEST(Console, FormatsAsPrintfDoesAtAnyLength) {
    const ConsoleCapture capture;
    const std::string longText(100000, 'x');
    EXPECT_EQ(utPrintf("%s: %d%%\n", "done", 42), 10);
    EXPECT_EQ(utPrintf("<%s>", longText.c_str()), 100002);
    EXPECT_EQ(utPrintf("%s", ""), 0);
    EXPECT_THAT(capture.texts, ElementsAre("done: 42%\n", "<" + longText + ">"));
}

TEST(Console, PrintsToStandardOutputWithoutRedirection) {
    const auto previous = host::redirectConsole({});
    testing::internal::CaptureStdout();
    utPrintf("Initializing %s module.\n", "dova");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Initializing dova module.\n");
    host::redirectConsole(previous);
}

TEST(Console, SinkMayPrintAndReplaceItself) {
    const ConsoleCapture outer;
    std::vector<std::string> heard;
    host::ConsoleSink before;
    before = host::redirectConsole([&](std::string_view text) {
        host::redirectConsole(before);
        heard.emplace_back(text);
        utPrintf("[%s]", heard.back().c_str());
    });
    utPrintf("first");
    utPrintf("second");
    EXPECT_THAT(heard, ElementsAre("first"));
    EXPECT_THAT(outer.texts, ElementsAre("[first]", "second"));
}

}  // namespace
