#include "runtime/HostCommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace DOVA::runtime {

using testing::HasSubstr;

struct CommandLineTest : testing::Test {
    std::optional<int> parse(std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), "program");
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        const auto exitCode =
            commandLine.parse(static_cast<int>(arguments.size()), arguments.data());
        errors = testing::internal::GetCapturedStderr();
        output = testing::internal::GetCapturedStdout();
        return exitCode;
    }

    CLI::App app{"A test", "program"};
    HostCommandLine commandLine{app};
    std::string errors;
    std::string output;
};

struct BadCommandLine {
    const char* name;
    std::vector<const char*> arguments;
    const char* sentence;
};

void PrintTo(const BadCommandLine& row, std::ostream* out) {
    *out << row.name;
}

class BadCommandLineTest : public CommandLineTest,
                           public testing::WithParamInterface<BadCommandLine> {};

TEST_P(BadCommandLineTest, SaysWhyInOneLine) {
    EXPECT_EQ(parse(GetParam().arguments), 2);
    EXPECT_THAT(errors, testing::StartsWith("program: "));
    EXPECT_THAT(errors, HasSubstr(GetParam().sentence));
    EXPECT_EQ(errors.find('\n'), errors.size() - 1);
    EXPECT_EQ(output, "");
}

const BadCommandLine badCommandLines[] = {
    {"Unknown", {"--nonsense"}, "--nonsense"},
    {"Superfluous", {"file"}, "file"},
    {"LineBreaks", {"--first\nsecond"}, "first second"},
    {"PortIsAWord", {"--port", "http"}, "--port"},
    {"PortTooLarge", {"--port", "65536"}, "--port"},
    {"PortNegative", {"--port=-1"}, "--port"},
    {"PortMissing", {"--port"}, "--port"},
    {"PortTwice", {"--port", "1", "--port", "2"}, "--port"},
    {"TokenFileMissing", {"--token-file"}, "--token-file"},
    {"AddressIsAName", {"--bind", "localhost"}, "\"localhost\" is not a numeric IP address"},
    {"AddressIsEmpty", {"--bind", ""}, "--bind"},
    {"Remote", {"--bind", "0.0.0.0"}, "--allow-remote"},
    {"RemoteIpv6", {"--bind", "::"}, "--allow-remote"},
};

INSTANTIATE_TEST_SUITE_P(Host, BadCommandLineTest, testing::ValuesIn(badCommandLines),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CommandLineTest, ReadsItsOptions) {
    EXPECT_EQ(
        parse({"--port", "8443", "--bind", "0.0.0.0", "--allow-remote", "--token-file", "a file"}),
        std::nullopt);
    EXPECT_EQ(commandLine.options().port, 8443);
    EXPECT_EQ(commandLine.options().bindAddress, "0.0.0.0");
    EXPECT_TRUE(commandLine.options().allowRemote);
    EXPECT_EQ(commandLine.options().tokenFile, "a file");
}

TEST_F(CommandLineTest, TakesEveryLoopbackAddress) {
    for (const char* address : {"127.0.0.1", "127.8.8.8", "::1"}) {
        EXPECT_EQ(parse({"--bind", address}), std::nullopt) << address;
    }
}

TEST_F(CommandLineTest, HelpsOnStandardOutput) {
    EXPECT_EQ(parse({"--help"}), 0);
    EXPECT_EQ(errors, "");
    for (const char* option : {"--port", "--bind", "--allow-remote", "--token-file"}) {
        EXPECT_THAT(output, HasSubstr(option));
    }
}

}  // namespace DOVA::runtime
