#include "host/Utf8.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* name;
    std::string bytes;
    std::u16string text;
};

TEST(Utf8, EveryTextComesBackAndEveryStrayByteIsReplaced) {
    const Row bothWays[] = {
        {"empty", "", u""},
        {"zero", std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
        {"ends", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", u"\u007f\u0080\u07ff\u0800\uffff"},
        {"beyondThePlane", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010ffff"},
        {"loneSurrogates", "\xED\xB0\x80\xED\xA0\x80", u"\xdc00\xd800"},
        {"highBeforeText", "\xED\xA0\x80z", u"\xd800z"},
    };
    const Row oneWay[] = {
        {"strayTail", "a\x80z", u"a\ufffdz"},
        {"neverUsed", "\xC0\xAF\xFE\xFF", u"\ufffd\ufffd\ufffd\ufffd"},
        {"tooLong", "\xE0\x80\xAF", u"\ufffd\ufffd\ufffd"},
        {"tooLarge", "\xF4\x90\x80\x80", u"\ufffd\ufffd\ufffd\ufffd"},
        {"brokenOff", "\xE2\x82", u"\ufffd\ufffd"},
        {"brokenIn", "\xF0\x9F\x98z", u"\ufffd\ufffd\ufffdz"},
    };
    for (const Row& row : bothWays) {
        EXPECT_EQ(host::toUtf8(row.text), row.bytes) << row.name;
        EXPECT_EQ(host::fromUtf8(row.bytes), row.text) << row.name;
    }
    for (const Row& row : oneWay) {
        EXPECT_EQ(host::fromUtf8(row.bytes), row.text) << row.name;
    }
}

}  // namespace
