#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/process.hpp>
#include <csignal>
#include <iterator>
#include <string>
#include <vector>

#include "support/RowNames.h"
#include "support/TemporaryFolder.h"

namespace {

namespace bp = boost::process;

std::string rest(std::istream& stream) {
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// jsonpad in a folder of its own, beside a.json. What it says is far below what a pipe holds, so
/// reading one stream after the other is safe.
class Jsonpad {
public:
    Jsonpad(const std::vector<std::string>& arguments, const std::string& text) {
        m_folder.write("a.json", text);
        process = bp::child(JSONPAD, bp::args(arguments), bp::start_dir(m_folder / ""),
                            bp::std_out > output, bp::std_err > errors);
    }

    bp::ipstream output;
    bp::ipstream errors;
    bp::child process;

private:
    const DOVA::test::TemporaryFolder m_folder;
};

using DOVA::test::operator<<;

struct Row {
    const char* name;
    std::vector<std::string> arguments;
    int exitCode;
    const char* sentence;
    const char* text = "{}";  ///< in a.json
};

class BadRunTest : public testing::TestWithParam<Row> {};

TEST_P(BadRunTest, EndsWithOneLineThatSaysWhy) {
    Jsonpad jsonpad(GetParam().arguments, GetParam().text);
    const std::string errors = rest(jsonpad.errors);
    EXPECT_THAT(errors, testing::StartsWith("jsonpad: "));
    EXPECT_THAT(errors, testing::HasSubstr(GetParam().sentence));
    EXPECT_EQ(errors.find('\n'), errors.size() - 1);
    EXPECT_EQ(rest(jsonpad.output), "");
    jsonpad.process.wait();
    EXPECT_EQ(jsonpad.process.exit_code(), GetParam().exitCode);
}

const Row rows[] = {
    {"NoFile", {}, 2, "FILE is required"},
    {"TwoFiles", {"a.json", "b"}, 2, "b"},
    {"UnknownOption", {"--fast", "a.json"}, 2, "--fast"},
    {"LineBreaks", {"--first\nsecond", "a.json"}, 2, "first second"},
    {"PortIsAWord", {"--port", "http", "a.json"}, 2, "--port"},
    {"PortTooLarge", {"--port", "65536", "a.json"}, 2, "--port"},
    {"AddressIsAName", {"--bind", "localhost", "a.json"}, 2, "is not a numeric IP address"},
    {"Remote", {"--bind", "::", "a.json"}, 2, "--allow-remote"},
    {"MissingFile", {"none.json"}, 1, "none.json"},
    {"NoJson", {"a.json"}, 1, "line 2", "{\n  \"a\": tru\n}"},
    {"TokenFileIsAFolder", {"--token-file", ".", "a.json"}, 1, "is not a regular file"},
};

INSTANTIATE_TEST_SUITE_P(Jsonpad, BadRunTest, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(JsonpadProcessTest, PrintsOneAddressAndServesUntilTheSignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Jsonpad jsonpad({"a.json"}, "{}");
        std::string address;
        std::getline(jsonpad.output, address);
        EXPECT_THAT(address, testing::MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/#.+"));
        ::kill(jsonpad.process.id(), signal);
        EXPECT_EQ(rest(jsonpad.output) + rest(jsonpad.errors), "");
        jsonpad.process.wait();
        EXPECT_EQ(jsonpad.process.native_exit_code(), 0) << "killed, or ended with a failure";
    }
}

}  // namespace
