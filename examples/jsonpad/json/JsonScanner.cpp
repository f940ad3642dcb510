#include "JsonScanner.h"

#include <boost/locale/utf.hpp>

#include "JsonError.h"

namespace jsonpad {

namespace {

// Not those of <cctype>, which ask the locale.
bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isHexDigit(char byte) {
    return isDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

std::size_t digitCount(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count])) {
        ++count;
    }
    return count;
}

/// The length of the fraction at the front of `text`, 0 when there is none.
std::size_t fractionLength(std::string_view text) {
    const std::size_t digits = text.substr(0, 1) == "." ? digitCount(text.substr(1)) : 0;
    return digits > 0 ? digits + 1 : 0;
}

/// The length of the exponent at the front of `text`, 0 when there is none.
std::size_t exponentLength(std::string_view text) {
    if (text.empty() || (text[0] != 'e' && text[0] != 'E')) {
        return 0;
    }
    const bool hasSign = text.size() > 1 && (text[1] == '+' || text[1] == '-');
    const std::size_t start = hasSign ? 2 : 1;
    const std::size_t digits = digitCount(text.substr(start));
    return digits > 0 ? start + digits : 0;
}

}  // namespace

std::vector<JsonMember> JsonScanner::scan(std::string_view text) {
    std::vector<JsonMember> members;
    JsonScanner(text).root(members);
    return members;
}

std::vector<JsonMember> JsonScanner::elements(std::string_view array) {
    std::vector<JsonMember> elements;
    JsonScanner(array).array(&elements);
    return elements;
}

std::size_t JsonScanner::numberLength(std::string_view text) {
    const std::size_t sign = text.substr(0, 1) == "-" ? 1 : 0;
    const std::string_view digits = text.substr(sign);
    const std::size_t whole = digits.substr(0, 1) == "0" ? 1 : digitCount(digits);
    if (whole == 0) {
        return 0;
    }
    const std::size_t fractionEnd = sign + whole + fractionLength(digits.substr(whole));
    return fractionEnd + exponentLength(text.substr(fractionEnd));
}

void JsonScanner::root(std::vector<JsonMember>& members) {
    if (m_text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_at = byteOrderMark.size();
    }
    skipSpace();
    if (peek() != '{') {
        fail("the file must hold an object, so \"{\" is expected here");
    }
    object(&members);
    skipSpace();
    if (m_at < m_text.size()) {
        fail("nothing may follow the object's closing brace");
    }
}

void JsonScanner::object(std::vector<JsonMember>* members) {
    expect('{', "\"{\" is expected here");
    skipSpace();
    if (take('}')) {
        return;
    }
    do {
        const JsonMember found = member();
        if (members != nullptr) {
            members->push_back(found);
        }
    } while (take(','));
    expect('}', "\",\" or \"}\" is expected after a member");
}

JsonMember JsonScanner::member() {
    skipSpace();
    const std::size_t start = m_at;
    if (peek() != '"') {
        fail("a key in double quotes is expected here");
    }
    string();
    const std::string_view key = since(start);
    skipSpace();
    expect(':', "\":\" is expected after a key");
    JsonMember result = element();
    result.key = key;
    return result;
}

JsonMember JsonScanner::element() {
    skipSpace();
    const std::size_t start = m_at;
    const JsonKind kind = value();
    const JsonMember result{{}, since(start), kind};
    skipSpace();
    return result;
}

JsonKind JsonScanner::array(std::vector<JsonMember>* elements) {
    expect('[', "\"[\" is expected here");
    skipSpace();
    if (take(']')) {
        return JsonKind::List;
    }
    JsonKind result = JsonKind::List;
    do {
        const JsonMember found = element();
        result = found.kind > JsonKind::Null ? JsonKind::Nested : result;
        if (elements != nullptr) {
            elements->push_back(found);
        }
    } while (take(','));
    expect(']', "\",\" or \"]\" is expected after an item");
    return result;
}

JsonKind JsonScanner::value() {
    switch (peek()) {
        case '"':
            string();
            return JsonKind::String;
        case '{':
        case '[':
            return nested();
        case 't':
            return word("true", JsonKind::Boolean);
        case 'f':
            return word("false", JsonKind::Boolean);
        case 'n':
            return word("null", JsonKind::Null);
        default:
            return number();
    }
}

JsonKind JsonScanner::nested() {
    // One level for this value, one for the root around it.
    if (++m_depth >= depthLimit) {
        fail("the values are nested too deeply");
    }
    JsonKind result = JsonKind::Object;
    if (peek() == '{') {
        object(nullptr);
    } else {
        result = array(nullptr);
    }
    --m_depth;
    return result;
}

void JsonScanner::string() {
    ++m_at;
    while (!take('"')) {
        if (take('\\')) {
            escape();
        } else {
            character();
        }
    }
}

void JsonScanner::escape() {
    if (!take('u')) {
        if (peek() == '\0' ||
            std::string_view("\"\\/bfnrt").find(peek()) == std::string_view::npos) {
            fail(
                "a backslash in a text must begin one of \\\" \\\\ \\/ \\b \\f \\n \\r \\t "
                "\\uXXXX");
        }
        ++m_at;
        return;
    }
    for (int digit = 0; digit < 4; ++digit) {
        if (!isHexDigit(peek())) {
            fail("\\u in a text must be followed by four hexadecimal digits");
        }
        ++m_at;
    }
}

void JsonScanner::character() {
    if (m_at >= m_text.size()) {
        fail("the closing quote of a text is missing");
    }
    if (static_cast<unsigned char>(m_text[m_at]) < 0x20U) {
        fail("a control character in a text must be written as an escape such as \\n or \\u0000");
    }
    const char* next = m_text.data() + m_at;
    const auto decoded =
        boost::locale::utf::utf_traits<char>::decode(next, m_text.data() + m_text.size());
    if (!boost::locale::utf::is_valid_codepoint(decoded)) {
        fail("the text is not valid UTF-8");
    }
    m_at = static_cast<std::size_t>(next - m_text.data());
}

JsonKind JsonScanner::number() {
    const std::size_t length = numberLength(m_text.substr(m_at));
    if (length == 0) {
        fail("a value is expected here");
    }
    m_at += length;
    return JsonKind::Number;
}

JsonKind JsonScanner::word(std::string_view word, JsonKind kind) {
    if (m_text.substr(m_at, word.size()) != word) {
        fail("a value is expected here");
    }
    m_at += word.size();
    return kind;
}

void JsonScanner::skipSpace() {
    const std::size_t next = m_text.find_first_not_of(" \t\r\n", m_at);
    m_at = next == std::string_view::npos ? m_text.size() : next;
}

bool JsonScanner::take(char wanted) {
    const bool isThere = m_at < m_text.size() && m_text[m_at] == wanted;
    m_at += isThere ? 1U : 0U;
    return isThere;
}

void JsonScanner::expect(char wanted, const char* sentence) {
    if (!take(wanted)) {
        fail(sentence);
    }
}

void JsonScanner::fail(const char* sentence) const {
    const bool isAtEnd = m_at >= m_text.size();
    throw JsonError(m_text, m_at, isAtEnd ? "the text ends too early" : sentence);
}

}  // namespace jsonpad
