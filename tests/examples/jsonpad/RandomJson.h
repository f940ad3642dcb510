#pragma once

#include <iterator>
#include <random>
#include <string>

namespace jsonpad_test {

/// Writes random JSON objects, in any of the forms that the grammar allows.
class RandomJson {
public:
    explicit RandomJson(unsigned int seed) : m_random(seed) {}

    std::string object(int depth = 3) {
        std::string result = space() + "{" + space();
        for (std::size_t count = below(6), index = 0; index < count; ++index) {
            result +=
                (index > 0 ? "," : "") + space() + string() + space() + ":" + value(depth - 1);
        }
        return result + "}" + space();
    }

    std::string string() {
        std::string result = "\"";
        for (std::size_t count = below(5); count > 0; --count) {
            result += one({"a", "key", " ", "/", "\\/", "\\\"", "\\\\", "\\n", "\\u00E9", "\\u0000",
                           "\\ud83d\\ude00", "\xC3\xA9", "\xF0\x9F\x98\x80", "\x7F"});
        }
        return result + "\"";
    }

    std::string number() {
        return one({"0", "-0", "7", "12345678901234567890", "1.50", "1.0E+5", "-2.5e-3", "-0.0"});
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }

    /// Any of the texts.
    std::string one(std::initializer_list<const char*> texts) {
        return texts.begin()[below(texts.size())];
    }

private:
    std::string value(int depth) {
        switch (below(depth > 0 ? 5 : 3)) {
            case 0:
                return space() + string() + space();
            case 1:
                return space() + number() + space();
            case 2:
                return space() + one({"true", "false", "null"}) + space();
            case 3:
                return object(depth);
            default:
                return array(depth);
        }
    }

    std::string array(int depth) {
        std::string result = space() + "[" + space();
        for (std::size_t count = below(4), index = 0; index < count; ++index) {
            result += (index > 0 ? "," : "") + value(depth - 1);
        }
        return result + "]" + space();
    }

    std::string space() { return one({"", "", "", " ", "\t", "\n", "\r\n  "}); }

    std::mt19937 m_random;
};

}  // namespace jsonpad_test
