#include "Settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "Visitors.h"
#include "support/TemporaryFolder.h"

namespace DOVA::serve {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SettingsTest : public testing::Test {
protected:
    /// The exit code, and what was said.
    std::pair<int, std::string> parse(std::vector<std::string> arguments) {
        std::vector<const char*> argv{"dova-serve"};
        for (const std::string& argument : arguments) {
            argv.push_back(argument.c_str());
        }
        settings = {};
        testing::internal::CaptureStderr();
        const auto code = settings.parse(static_cast<int>(argv.size()), argv.data());
        return {code.value_or(-1), testing::internal::GetCapturedStderr()};
    }

    const test::TemporaryFolder folder;
    Settings settings;
};

TEST_F(SettingsTest, comeFromTheCommandLineTheEnvironmentAndAFileInThisOrder) {
    const std::string file = folder.write("serve.toml",
                                          "program = [\"pad\", \"--file={visitor}.json\"]\n"
                                          "port = 1\nprograms = 1\nmemory = \"1GB\"\n"
                                          "visitor = [\"alice\", \"bob\"]\nidle = \"5min\"\n");
    ::setenv("DOVA_SERVE_PORT", "2", 1);
    ::setenv("DOVA_SERVE_PROGRAMS", "2", 1);
    EXPECT_EQ(parse({"--config", file, "--port", "3"}).first, -1);
    ::unsetenv("DOVA_SERVE_PORT");
    ::unsetenv("DOVA_SERVE_PROGRAMS");
    EXPECT_EQ(settings.gateway.port, 3);
    EXPECT_EQ(settings.programs, 2u);
    EXPECT_EQ(settings.command.limits.memoryBytes, 1u << 30);
    EXPECT_EQ(settings.times.idle, std::chrono::minutes(5));
    EXPECT_THAT(settings.visitors, ElementsAre("alice", "bob"));
    EXPECT_THAT(commandFor(settings.command, "al{visitor}").arguments,
                ElementsAre("pad", "--file=al{visitor}.json"));
    EXPECT_EQ(parse({"--config", file, "other", "--port", "x"}).first, -1);
    EXPECT_THAT(settings.command.arguments, ElementsAre("other", "--port", "x"));
}

TEST_F(SettingsTest, areRefusedInOneLine) {
    const std::string unknown = folder.write("unknown.toml", "colour = 1\n");
    const std::string number = folder.write("number.toml", "port = \"many\"\n");
    struct {
        std::vector<std::string> arguments;
        const char* why;
    } const rows[] = {{{"--visitor", "a"}, "no program is named"},
                      {{"pad"}, "nobody may come in"},
                      {{"--visitor", "a b", "pad"}, "is no name"},
                      {{"--visitor", "..", "pad"}, "is no name"},
                      {{"--port", "70000", "pad"}, "--port"},
                      {{"--programs", "0", "pad"}, "--programs"},
                      {{"--memory", "much", "pad"}, "--memory"},
                      {{"--idle", "5 weeks", "pad"}, "--idle"},
                      {{"--environment", "=x", "--visitor", "a", "pad"}, "is not NAME=VALUE"},
                      {{"--log-level", "loud", "pad"}, "--log-level"},
                      {{"--config", "/no/such/file", "--visitor", "a", "pad"}, "/no/such/file"},
                      {{"--config", unknown, "--visitor", "a", "pad"}, "colour"},
                      {{"--config", number, "--visitor", "a", "pad"}, "--port"}};
    for (const auto& row : rows) {
        const auto [code, line] = parse(row.arguments);
        EXPECT_EQ(code, 2) << row.why;
        EXPECT_THAT(line, testing::StartsWith("dova-serve: "));
        EXPECT_THAT(line, HasSubstr(row.why));
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
    }
}

TEST_F(SettingsTest, faultsAreToldOneALine) {
    parse({"--visitors", folder / "none", "--theme", "/no/such/theme", "--socket-folder",
           folder / "none", "/no/such/program"});
    EXPECT_THAT(settings.faults(), ElementsAre(HasSubstr("theme"), HasSubstr("file of visitors"),
                                               HasSubstr("none is no folder"),
                                               HasSubstr("cannot start /no/such/program")));
    parse({"--visitor", "a", "sh"});
    EXPECT_THAT(settings.faults(), testing::IsEmpty());
}

TEST_F(SettingsTest, aFileOfVisitorsIsReadOrRefusedWhole) {
    const std::string one(40, 'a'), two(40, 'b');
    const auto read = [&](const std::string& text, mode_t mode = 0600) -> std::string {
        const std::string file = folder.write("visitors", text);
        ::chmod(file.c_str(), mode);
        try {
            std::string names;
            for (const auto& visitor : Visitors::read(file)) {
                names += visitor.name + " ";
            }
            return names;
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    };
    const std::string good = "# who may\n\nalice " + one + "\n b@b.b\t" + two + " \r\n";
    EXPECT_EQ(read(good), "alice b@b.b ");
    struct {
        std::string text;
        mode_t mode;
        const char* why;
    } const rows[] = {{good, 0640, "can be read or changed by others"},
                      {"alice " + one + "\nalice " + two, 0600, "line 2"},
                      {"alice " + one + "\nbob " + one, 0600, "line 2"},
                      {"alice short", 0600, "line 1"},
                      {"al/ice " + one, 0600, "line 1"},
                      {"alice " + one + " more", 0600, "line 1"},
                      {"alice", 0600, "line 1"}};
    for (const auto& row : rows) {
        EXPECT_THAT(read(row.text, row.mode), HasSubstr(row.why));
    }
}

TEST_F(SettingsTest, aTokenThatDiffersAnywhereIsNobodys) {
    Visitors visitors;
    const std::string token(40, 'a');
    visitors.set({{"bob", std::string(40, 'b')}, {"alice", token}});
    EXPECT_EQ(visitors.nameOf(token), "alice");
    for (std::size_t at = 0; at < token.size(); ++at) {
        std::string other = token;
        other[at] ^= 1;
        EXPECT_EQ(visitors.nameOf(other), std::nullopt);
    }
    for (const char* const other : {"", "a", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"}) {
        EXPECT_EQ(visitors.nameOf(other), std::nullopt);
    }
}

}  // namespace
}  // namespace DOVA::serve
