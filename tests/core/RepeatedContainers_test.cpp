#include "core/RepeatedContainers.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <map>
#include <random>

#include "core/MessageService.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace DOVA {
namespace {

TEST(RepeatedContainersTest, areFoundInWhatTheParserGivesUpToo) {
    std::string deep = "1";
    for (int i = 0; i < 2000; ++i) {
        deep.insert(0, R"({"a":)");
    }
    const std::pair<std::string, bool> rows[] = {{R"([{"a":[1],"a":[2]},)", true},
                                                 {R"({"\q":[1],"q":[2]})", true},
                                                 {R"({"a":[1],"a)", false},
                                                 {deep, false}};
    for (const auto& [text, repeated] : rows) {
        EXPECT_EQ(RepeatedContainers::occurIn(text), repeated) << text;
        EXPECT_TRUE(fromWireText(text).isNull()) << text;
    }
}

TEST(RepeatedContainersTest, truncatedTextsAreSurvived) {
    const std::string text = R"([{"\u0061\"":[{"b" : {"c":[]}}],"d":{},"a\"":[1]}])";
    const std::size_t repeated = text.rfind('}') + 1;  // where the parser drops a member
    for (std::size_t length = 0; length <= text.size(); ++length) {
        EXPECT_EQ(RepeatedContainers::occurIn(text.substr(0, length)), length >= repeated);
    }
}

/// A random object tree with few keys, and whether a parser that frees nothing it overwrites would
/// lose something of it.
class RandomText {
public:
    explicit RandomText(unsigned seed) : m_random(seed) {}

    std::string value(int depth) {
        switch (depth > 0 ? pick(6) : pick(3)) {
            case 0:
                return "7";
            case 1:
                return R"("\"a\":[")";
            case 2:
                return R"(":[:{")";
            case 3:
                return "[" + value(depth - 1) + blank() + "," + value(depth - 1) + "]";
            default:
                return object(depth);
        }
    }

    bool repeated = false;

private:
    unsigned pick(unsigned count) { return m_random() % count; }

    std::string blank() { return std::string(pick(2), " \t\r\n"[pick(4)]); }

    std::string object(int depth) {
        // Each key in two spellings.
        static const char* const spellings[][2] = {
            {"a", "\\u0061"},   {"é", "\\u00E9"},        {"", ""},
            {"\\n", "\\u000a"}, {"\\\\", "\\u005c"},     {"\\\"", "\\u0022"},
            {"a\\/b", "a/b"},   {"😀", "\\ud83d\\uDE00"}, {"\\ud83d", "\\uD83D"}};
        // The numbers of the keys so far, and whether a member of that key was a container.
        std::map<unsigned, bool> held;
        std::string text;
        const bool large = pick(20) == 0;
        for (unsigned count = pick(large ? 40 : 6); count > 0; --count) {
            const unsigned key = pick(large ? 400 : std::size(spellings));
            const std::string member = value(depth - 1);
            const bool holds = member[0] == '[' || member[0] == '{';
            repeated = repeated || (held.count(key) > 0 && (holds || held[key]));
            held[key] |= holds;
            text += (text.empty() ? "" : ",") + blank() + '"' +
                    (key < std::size(spellings) ? spellings[key][pick(2)] : std::to_string(key)) +
                    '"' + blank() + ":" + blank() + member;
        }
        return "{" + text + "}";
    }

    std::mt19937 m_random;
};

TEST(RepeatedContainersTest, agreeWithASimpleModel) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomText random(seed);
    int found = 0;
    constexpr int count = 20000;
    for (int i = 0; i < count; ++i) {
        random.repeated = false;
        const std::string text = "[" + random.value(4) + "]";
        ASSERT_EQ(RepeatedContainers::occurIn(text), random.repeated) << text;
        ASSERT_EQ(fromWireText(text).isNull(), random.repeated) << text;
        found += random.repeated;
    }
    EXPECT_GT(found, count / 20);
    EXPECT_LT(found, count / 2);
}

#if defined(__SANITIZE_ADDRESS__)
/// The stories: {"a":[1],"a":[1]} lost 96 bytes of the process with every message; and in an object
/// of more than sixteen members, which the parser sorts in another way, the scalar that came first
/// could push out the container.
TEST(RepeatedContainersLeakTest, messagesLoseNothing) {
    for (int key = 0; key < 20; ++key) {
        std::string text = "{";
        for (int member = 0; member < 20; ++member) {
            text += '"' + std::to_string(member) + "\":1,";
        }
        fromWireText(text + '"' + std::to_string(key) + "\":[1]}");
    }
    for (const char* text : {R"({"a":[1],"a":[1]})", R"({"a":[1],"\u0061":0})", R"({"a":[1],"a")",
                             R"([[1],{"a":[1])", R"({"a":[1]}x)", R"({"a":[{"b":[2],)"}) {
        fromWireText(text);
    }
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
}
#endif

}  // namespace
}  // namespace DOVA
