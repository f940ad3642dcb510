#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/process.hpp>
#include <csignal>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "examples/jsonpad/TemporaryFolder.h"

namespace {

using jsonpad_test::TemporaryFolder;
namespace bp = boost::process;

struct Ended {
    int exitCode;
    std::string output;
    std::string errors;
};

std::string rest(std::istream& stream) {
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What it says is far below what a pipe holds, so reading one after the other is safe.
Ended run(const std::vector<std::string>& arguments) {
    bp::ipstream output;
    bp::ipstream errors;
    bp::child jsonpad(JSONPAD, bp::args(arguments), bp::std_out > output, bp::std_err > errors);
    Ended result{0, rest(output), rest(errors)};
    jsonpad.wait();
    result.exitCode = jsonpad.exit_code();
    return result;
}

struct BadRun {
    const char* name;
    std::function<std::vector<std::string>(const TemporaryFolder&)> arguments;
    int exitCode;
    const char* sentence;
};

void PrintTo(const BadRun& row, std::ostream* out) {
    *out << row.name;
}

class BadRunTest : public testing::TestWithParam<BadRun> {};

TEST_P(BadRunTest, EndsWithOneLineThatSaysWhy) {
    const TemporaryFolder folder;
    const Ended ended = run(GetParam().arguments(folder));
    EXPECT_EQ(ended.exitCode, GetParam().exitCode);
    EXPECT_THAT(ended.errors, testing::StartsWith("jsonpad: "));
    EXPECT_THAT(ended.errors, testing::HasSubstr(GetParam().sentence));
    EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1);
    EXPECT_EQ(ended.output, "");
}

using Arguments = std::vector<std::string>;

const BadRun badRuns[] = {
    {"NoFile", [](auto&) { return Arguments{}; }, 2, "FILE is required"},
    {"TwoFiles",
     [](auto&) {
         return Arguments{"a", "b"};
     },
     2, "b"},
    {"UnknownOption",
     [](auto&) {
         return Arguments{"--fast", "a"};
     },
     2, "--fast"},
    {"BadPort",
     [](auto&) {
         return Arguments{"--port", "x", "a"};
     },
     2, "--port"},
    {"Remote",
     [](auto&) {
         return Arguments{"--bind", "0.0.0.0", "a"};
     },
     2, "--allow-remote"},
    {"MissingFile", [](auto& folder) { return Arguments{folder / "none.json"}; }, 1, "none.json"},
    {"Folder", [](auto& folder) { return Arguments{folder / ""}; }, 1, "not a regular file"},
    {"EmptyFile", [](auto& folder) { return Arguments{folder.write("a.json", "")}; }, 1, "a.json"},
    {"NoJson", [](auto& folder) { return Arguments{folder.write("a.json", "{\n  \"a\": tru\n}")}; },
     1, "line 2"},
    {"Array", [](auto& folder) { return Arguments{folder.write("a.json", "[]")}; }, 1, "a.json"},
    {"NoUtf8", [](auto& folder) { return Arguments{folder.write("a.json", "{\"a\":\"\xFF\"}")}; },
     1, "line 1"},
    {"TokenFileIsAFolder",
     [](auto& folder) {
         return Arguments{"--token-file", folder / "", folder.write("a.json", "{}")};
     },
     1, "token file"},
};

INSTANTIATE_TEST_SUITE_P(Jsonpad, BadRunTest, testing::ValuesIn(badRuns),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(JsonpadProcessTest, RefusesATakenPort) {
    boost::asio::io_context loop;
    const boost::asio::ip::tcp::acceptor other(loop, {boost::asio::ip::address_v4::loopback(), 0});
    const TemporaryFolder folder;
    const Ended ended = run(
        {"--port", std::to_string(other.local_endpoint().port()), folder.write("a.json", "{}")});
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_THAT(ended.errors, testing::StartsWith("jsonpad: cannot listen on 127.0.0.1:"));
    EXPECT_EQ(ended.output, "");
}

class ServingTest : public testing::TestWithParam<int> {};

TEST_P(ServingTest, PrintsOneAddressAndServesUntilTheSignal) {
    const TemporaryFolder folder;
    bp::ipstream output;
    bp::ipstream errors;
    bp::child jsonpad(JSONPAD, folder.write("a.json", "{}"), bp::std_out > output,
                      bp::std_err > errors);
    std::string address;
    std::getline(output, address);
    EXPECT_THAT(address, testing::MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/#.+"));
    ::kill(jsonpad.id(), GetParam());
    EXPECT_EQ(rest(output), "");
    EXPECT_EQ(rest(errors), "");
    jsonpad.wait();
    EXPECT_EQ(jsonpad.exit_code(), 0);
    EXPECT_EQ(jsonpad.native_exit_code(), 0) << "it was killed";
    EXPECT_EQ(folder.read("a.json"), "{}");
}

INSTANTIATE_TEST_SUITE_P(Jsonpad, ServingTest, testing::Values(SIGINT, SIGTERM));

}  // namespace
