#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "DovaHost.h"
#include "support/TemporaryFolder.h"

namespace DOVA::test {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string s_lockFile = TREE "/client/package-lock.json";

std::string textOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace

class ExampleScriptsTest : public testing::Test {
protected:
    Ending run(const std::string& script, std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), TREE "/examples/scripts/" + script);
        return runDovaHost(folder / "", arguments);
    }

    const TemporaryFolder folder;
};

TEST_F(ExampleScriptsTest, AskAPackageLockFile) {
    const std::string text = textOf(s_lockFile);
    const Ending all = run("lock.lua", {s_lockFile});
    EXPECT_EQ(occurrences(all.output, "\n"), occurrences(text, "\"node_modules/"));
    EXPECT_THAT(all.output, HasSubstr("\nlit 3."));
    const Ending one = run("lock.lua", {s_lockFile, "lit-html"});
    EXPECT_THAT(one.output,
                testing::AllOf(StartsWith("lit-html 3."), HasSubstr("\nneeded by lit\n")));
    EXPECT_EQ(occurrences(one.output, "needed by "), occurrences(text, "\"lit-html\": \""));
    EXPECT_EQ(all.errors + one.errors, "");
}

TEST_F(ExampleScriptsTest, PrintAndMergeWhatIsRealWithoutLoss) {
    folder.write("once.json", run("pretty.lua", {s_lockFile}).output);
    const std::string compact = run("pretty.lua", {"--compact", s_lockFile}).output;
    EXPECT_EQ(run("pretty.lua", {"--compact", "once.json"}).output, compact);
    EXPECT_EQ(occurrences(compact, "\n"), 1u);
    const Ending merged = run("merge.lua", {s_lockFile, "once.json"});
    EXPECT_EQ(merged.output, folder.read("once.json")) << "what is merged with itself stays";
}

TEST_F(ExampleScriptsTest, MergeObjectsInObjects) {
    folder.write("a.json", R"({"a":{"x":1,"y":[1]},"b":null,"c":{"z":1}})");
    folder.write("b.json", R"({"a":{"y":[2],"n":null},"b":{"q":false},"c":"text"})");
    folder.write("merged.json", run("merge.lua", {"a.json", "b.json"}).output);
    EXPECT_EQ(run("pretty.lua", {"--compact", "merged.json"}).output,
              R"({"a":{"n":null,"x":1,"y":[2]},"b":{"q":false},"c":"text"})"
              "\n");
}

}  // namespace DOVA::test
