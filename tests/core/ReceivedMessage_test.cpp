#include "core/ReceivedMessage.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <random>

#include "core/MessageService.h"
#include "core/PropertyNames.h"

namespace DOVA {
namespace {

std::string read(const ReceivedMessage& message) {
    std::string all = std::to_string(message.identifier());
    for (const QString& key : {received::id, received::event, received::value, received::index}) {
        all += "|" + std::to_string(message.has(key)) + std::to_string(message.flag(key)) +
               std::to_string(message.number(key)) + " " +
               QString::fromStdU16String(message.text(key)).toStdString();
    }
    return all + std::to_string(message.isEvent(events::onClick));
}

/// Whether a text is plain; then Qt reads the same in it.
bool isPlain(const std::string& text) {
    ReceivedMessage plain;
    if (!plain.readPlain(text)) {
        return false;
    }
    const QJsonDocument document = fromWireText(text);
    EXPECT_TRUE(document.isObject()) << text;
    const QJsonObject object = document.object();
    EXPECT_EQ(read(plain), read(ReceivedMessage(object))) << text;
    return true;
}

TEST(ReceivedMessageTest, whatIsNotPlainIsLeftToQt) {
    const std::pair<const char*, bool> rows[] = {
        {R"({"id":"7","event":"onClick"})", true},
        {R"({"id":"4294967295","value":"a, {b: [~","index":-999999999,"":null})", true},
        {R"({"id":"4294967296","event":true,"value":false,"index":0})", true},
        {R"({"1":1,"2":1,"3":1,"4":1,"5":1,"6":1,"7":1,"8":1})", true},
        {R"({"1":1,"2":1,"3":1,"4":1,"5":1,"6":1,"7":1,"8":1,"9":1})", false},
        {R"({"id":"7","id":"8"})", false},
        {R"({"id":"\u0037"})", false},
        {R"({"i\u0064":"7"})", false},
        {"{\"id\":\"\xC3\xBC\"}", false},
        {R"({"index":1234567890})", false},
        {R"({"index":01})", false},
        {R"({"index":-0})", false},
        {R"({"index":-})", false},
        {R"({"index":1e3})", false},
        {R"({"value":{}})", false},
        {R"({"value":"7})", false},
        {R"({"value":tru})", false},
        {R"({"value":truer})", false},
        {R"({"value":"7",})", false},
        {R"({"value":"7"}})", false},
        {R"({"value":"7"} )", false},
        {"{\"value\":\"\x7F\"}", false},
        {R"([{"id":"7"}])", false},
        {"{}", false},
        {"", false},
    };
    for (const auto& [text, plain] : rows) {
        EXPECT_EQ(isPlain(text), plain) << text;
    }
}

TEST(ReceivedMessageTest, randomTextsMeanWhatQtReadsInThem) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto pick = [&](const auto& from) {
        return std::string(from[random() % std::size(from)]);
    };
    constexpr const char* keys[] = {"id", "event", "value", "index", "x"};
    constexpr const char* values[] = {R"("7")",    R"("onClick")", R"("")", "0",    "-5",
                                      "123456789", "true",         "false", "null", "1",
                                      R"("a b")"};
    constexpr std::string_view changes = "{}[]:,\"\\ 0-.eu\x01\xC3\xBC";
    int plain = 0;
    constexpr int count = 50000;
    for (int i = 0; i < count; ++i) {
        std::string text;
        for (unsigned members = random() % 5; members > 0; --members) {
            text += (text.empty() ? "\"" : ",\"") + pick(keys) + "\":" + pick(values);
        }
        text.insert(0, 1, '{').append(1, '}');
        if (random() % 2 == 0) {
            const std::size_t at = random() % text.size();
            text.replace(at, random() % 2, 1, changes[random() % changes.size()]);
        }
        plain += isPlain(text);
    }
    EXPECT_GT(plain, count / 10);
    EXPECT_LT(plain, count * 9 / 10);
}

}  // namespace
}  // namespace DOVA
