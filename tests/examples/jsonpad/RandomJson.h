#pragma once

#include <random>
#include <string>

namespace jsonpad_test {

/// Writes random JSON objects, in any of the forms that the grammar allows.
class RandomJson {
public:
    explicit RandomJson(unsigned int seed) : m_random(seed) {}

    std::string object(int depth = 3) {
        std::string result = space() + "{" + space();
        const std::size_t count = below(6);
        for (std::size_t index = 0; index < count; ++index) {
            result +=
                (index > 0 ? "," : "") + space() + string() + space() + ":" + value(depth - 1);
        }
        return result + "}" + space();
    }

    std::string string() {
        static const char* const pieces[] = {"a",
                                             "key",
                                             " ",
                                             "/",
                                             "\\/",
                                             "\\\"",
                                             "\\\\",
                                             "\\n",
                                             "\\t",
                                             "\\u00e9",
                                             "\\u00E9",
                                             "\\u0000",
                                             "\\ud83d\\ude00",
                                             "\xC3\xA9",
                                             "\xE2\x82\xAC",
                                             "\xF0\x9F\x98\x80",
                                             "\x7F"};
        std::string result = "\"";
        for (std::size_t count = below(5); count > 0; --count) {
            result += pieces[below(std::size(pieces))];
        }
        return result + "\"";
    }

    std::string number() {
        static const char* const forms[] = {"0",       "-0",     "7",    "12345678901234567890",
                                            "1.0",     "1.50",   "1e5",  "1.0E+5",
                                            "-2.5e-3", "0.1e01", "-0.0", "9007199254740993"};
        return forms[below(std::size(forms))];
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }

private:
    std::string value(int depth) {
        static const char* const words[] = {"true", "false", "null"};
        switch (below(depth > 0 ? 5 : 3)) {
            case 0:
                return space() + string() + space();
            case 1:
                return space() + number() + space();
            case 2:
                return space() + words[below(3)] + space();
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

    std::string space() {
        static const char* const spaces[] = {"", "", "", " ", "\t", "\n", "\r\n  "};
        return spaces[below(std::size(spaces))];
    }

    std::mt19937 m_random;
};

}  // namespace jsonpad_test
