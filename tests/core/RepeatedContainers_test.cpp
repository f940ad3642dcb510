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

struct TextRow {
    const char* name;
    std::string text;
    bool repeated;
    bool isMessage = !repeated;
};

std::string nested(int depth, const std::string& open, const std::string& inside) {
    std::string text;
    for (int i = 0; i < depth; ++i) {
        text += open;
    }
    return text + inside;
}

class RepeatedContainersTest : public testing::TestWithParam<TextRow> {};

TEST_P(RepeatedContainersTest, areFound) {
    EXPECT_EQ(RepeatedContainers::occurIn(GetParam().text), GetParam().repeated);
}

TEST_P(RepeatedContainersTest, areNoMessage) {
    EXPECT_EQ(fromWireText(GetParam().text).isNull(), !GetParam().isMessage);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RepeatedContainersTest,
    testing::Values(TextRow{"two arrays", R"({"a":[1],"a":[2]})", true},
                    TextRow{"two objects", R"({"a":{"x":1},"a":{"x":2}})", true},
                    TextRow{"array, then number", R"({"a":[1],"a":2})", true},
                    TextRow{"number, then array", R"({"a":2,"a":[1]})", false},
                    TextRow{"number, array, number", R"({"a":2,"a":[1],"a":3})", true},
                    TextRow{"not side by side", R"({"a":[1],"b":2,"c":{"d":3},"a":4})", true},
                    TextRow{"within an array", R"([1,{"a":[1],"a":[2]}])", true},
                    TextRow{"within an object", R"({"o":{"a":[1],"a":[2]}})", true},
                    TextRow{"before an error", R"([{"a":[1],"a":[2]},)", true},
                    TextRow{"blanks", "{ \"a\"\n:\t[1]\r, \"a\" : [2] }", true},
                    TextRow{"escaped the second time", R"({"a":[1],"\u0061":[2]})", true},
                    TextRow{"escaped the first time", R"({"\u0061":[1],"a":[2]})", true},
                    TextRow{"capital digits in the escape", R"({"\u00E9":[1],"é":[2]})", true},
                    TextRow{"a pair of escapes", R"({"\ud83d\ude00":[1],"😀":[2]})", true},
                    TextRow{"half a pair", R"({"\ud83d":[1],"\ud83d":[2]})", true},
                    TextRow{"needless escape", R"({"a\/b":[1],"a/b":[2]})", true},
                    TextRow{"unknown escape", R"({"\q":[1],"q":[2]})", true},
                    TextRow{"empty keys", R"({"":[1],"":[2]})", true},
                    TextRow{"an escaped quote", R"({"a\"":[1],"a\"":[2]})", true},
                    TextRow{"the same key of different objects", R"([{"a":[1]},{"a":[2]}])", false},
                    TextRow{"the same key one level down", R"({"a":{"a":{"a":[1]}}})", false},
                    TextRow{"the key of a closed object", R"({"o":{"a":[1]},"a":[2]})", false},
                    TextRow{"scalars", R"({"a":1,"a":2,"b":[1]})", false},
                    TextRow{"different keys", R"({"a":[1],"b":[2],"A":[3]})", false},
                    TextRow{"keys within a text", R"({"a":[1],"b":"\"a\":[2]"})", false},
                    TextRow{"a text in front of a key", R"({"a":[1],"b":"a","c":["a"]})", false},
                    TextRow{"a backslash at the end of a key", R"({"a\\":[1],"a":[2]})", false},
                    TextRow{"a text of colons and brackets", R"({"a":":[:{","b":":["})", false},
                    TextRow{"too deep for the parser", nested(2000, R"({"a":)", "1"), false,
                            false}),
    [](const auto& row) {
        std::string name = row.param.name;
        for (char& character : name) {
            character = std::isalnum(static_cast<unsigned char>(character)) ? character : '_';
        }
        return name;
    });

TEST(RepeatedContainersAttackTest, truncatedTextsAreSurvived) {
    const std::string text = R"([{"\u0061\"":[{"b" : {"c":[]}}],"d":{},"a\"":[1]}])";
    const std::size_t repeated = text.rfind(':') + 1;  // where the second key counts as one
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
        switch (depth > 0 ? pick(5) : pick(2)) {
            case 0:
                return "7";
            case 1:
                return R"("\"a\":[")";
            case 2:
                return "[" + value(depth - 1) + " , " + value(depth - 1) + "]";
            default:
                return object(depth);
        }
    }

    bool repeated = false;

private:
    unsigned pick(unsigned count) { return m_random() % count; }

    std::string object(int depth) {
        // Each key in two spellings.
        static const char* const spellings[][2] = {
            {"a", "\\u0061"}, {"b", "\\u0062"}, {"é", "\\u00e9"}, {"", ""}, {"\\n", "\\u000a"}};
        std::map<unsigned, bool> held;
        std::string text;
        for (unsigned count = pick(5); count > 0; --count) {
            const unsigned key = pick(5);
            const std::string member = value(depth - 1);
            repeated = repeated || held[key];
            held[key] = held[key] || member[0] == '[' || member[0] == '{';
            text += (text.empty() ? "" : ",") + ("\"" + std::string(spellings[key][pick(2)])) +
                    "\" :" + member;
        }
        return "{" + text + "}";
    }

    std::mt19937 m_random;
};

TEST(RepeatedContainersRandomTest, agreeWithASimpleModel) {
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
/// The story: {"a":[1],"a":[1]} lost 96 bytes of the process with every message.
TEST(RepeatedContainersLeakTest, messagesLoseNothing) {
    for (const char* text : {R"({"a":[1],"a":[1]})", R"({"a":[1],"\u0061":0})", R"({"a":[1],"a")",
                             R"([[1],{"a":[1])", R"({"a":[1]}x)", R"({"a":[{"b":[2],)"}) {
        fromWireText(text);
    }
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
}
#endif

}  // namespace
}  // namespace DOVA
