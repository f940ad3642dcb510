#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "DovaHost.h"

namespace DOVA::test {

namespace {

/// The prompt's mark and what was typed after it; the place after the mark, 0 for no such line.
std::size_t typedAt(const std::string& line) {
    return line.rfind("> ", 0) == 0 ? 2 : line.rfind(">> ", 0) == 0 ? 3 : 0;
}

}  // namespace

/// The guide shows what a user sees; here its blocks are typed, one after the other, as one
/// session, and everything is to come out as shown.
TEST(ScriptingGuideTest, ShowsWhatReallyComes) {
    std::ifstream guide(TREE "/docs/scripting.md");
    std::string typed, shown;
    int blocks = 0;
    bool isInside = false;
    for (std::string line; std::getline(guide, line);) {
        if (line.rfind("```", 0) == 0) {
            isInside = line == "```lua";
            blocks += isInside ? 1 : 0;
            // So that a difference is found in its block.
            typed += isInside ? "print('block " + std::to_string(blocks) + "')\n" : "";
            shown += isInside ? "block " + std::to_string(blocks) + "\n" : "";
        } else if (isInside) {
            const std::size_t begin = typedAt(line);
            (begin > 0 ? typed : shown) += line.substr(begin) + "\n";
        }
    }
    ASSERT_GT(blocks, 5);
    const Ending ending = runDovaHost(TREE, {"-i"}, typed);
    EXPECT_EQ(ending.output, shown);
    EXPECT_EQ(ending.errors, "");
}

}  // namespace DOVA::test
