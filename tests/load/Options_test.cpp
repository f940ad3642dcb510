#include "Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RowNames.h"

namespace DOVA::load {

using test::operator<<;

struct BadRow {
    const char* name;
    std::vector<const char*> words;
    const char* says;
};

class BadOptionsTest : public testing::TestWithParam<BadRow> {};

TEST_P(BadOptionsTest, AreRefusedInOneLine) {
    std::vector<const char*> words = {"dova-load", "http://127.0.0.1:1/#t"};
    words.insert(words.end(), GetParam().words.begin(), GetParam().words.end());
    Options options;
    testing::internal::CaptureStderr();
    EXPECT_EQ(parseOptions(static_cast<int>(words.size()), words.data(), options), 2);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, testing::AllOf(testing::StartsWith("dova-load: "),
                                     testing::HasSubstr(GetParam().says)));
    EXPECT_EQ(said.find('\n'), said.size() - 1);
}

INSTANTIATE_TEST_SUITE_P(
    , BadOptionsTest,
    testing::Values(BadRow{"NoToken", {"http://127.0.0.1:1/"}, "is not what a program prints"},
                    BadRow{"Encrypted", {"https://127.0.0.1:1/#t"}, "TLS"},
                    BadRow{"BadPort", {"http://127.0.0.1:99999/#t"}, "cannot find"},
                    BadRow{"NoFile", {"--addresses", "/nowhere"}, "/nowhere"},
                    BadRow{"AFolder", {"--addresses", "/"}, "File is actually a directory"},
                    BadRow{"UnknownKind", {"--faults", "3,bite"}, "there is no \"bite\""},
                    BadRow{"NegativeCount", {"--faults=-3"}, "there is no \"-3\""},
                    BadRow{"StopNobody", {"--faults", "stop"}, "needs --pid"},
                    BadRow{"KillForGood", {"--faults", "kill", "--pid", "serve=1"}, "--restart"},
                    BadRow{"UnknownRole", {"--pid", "king=1"}, "is not gateway=PID"},
                    BadRow{"NoProcess", {"--pid", "serve=999999999"}, "no such process"},
                    BadRow{"EveryProcess", {"--pid", "serve=0"}, "is not gateway=PID"},
                    BadRow{"NegativeProcess", {"--pid", "serve=-1"}, "is not gateway=PID"},
                    BadRow{"Endless", {"--rate", "0"}, "needs --actions"},
                    BadRow{"NoPages", {"--pages", "0"}, "--pages"}),
    test::RowName());

std::string scheduleOf(std::vector<const char*> words) {
    words.insert(words.begin(), {"dova-load", "http://127.0.0.1:1/#t"});
    Options options;
    EXPECT_EQ(parseOptions(static_cast<int>(words.size()), words.data(), options), std::nullopt);
    return digest(drawSchedule(options.faults));
}

/// The digests are those of every machine: whoever changes how a schedule is drawn changes what an
/// old seed means.
TEST(ScheduleTest, IsTheSameForTheSameSeed) {
    EXPECT_EQ(scheduleOf({"--faults", "100", "--duration", "60"}), "de1c27f21dfdab5c");
    EXPECT_EQ(scheduleOf({"--faults", "100", "--duration", "60", "--seed", "2"}),
              "c7ca91b491fa3a0f");
}

}  // namespace DOVA::load
