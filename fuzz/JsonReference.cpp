#include "JsonReference.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "host/Console.h"
#include "host/Utf8.h"

// There in builds with the leak sanitizer.
extern "C" __attribute__((weak)) void __lsan_disable();
extern "C" __attribute__((weak)) void __lsan_enable();

namespace DOVA::fuzz {

namespace {

/// Qt loses members that repeat a key; here that is not to count.
QJsonDocument parseWithLeaks(const QByteArray& bytes, QJsonParseError& error) {
    if (__lsan_disable) {
        __lsan_disable();
    }
    QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (__lsan_enable) {
        __lsan_enable();
    }
    return document;
}

// Up to so many members Qt's parser keeps the last one of a key.
constexpr int s_sortedInOrder = 16;

void require(bool condition, const std::string& what) {
    if (!condition) {
        std::cerr << "not as Qt has it: " << what << "\n";
        std::abort();
    }
}

}  // namespace

JsonReference::JsonReference(const std::uint8_t* data, std::size_t size)
    : m_text(host::fromUtf8({reinterpret_cast<const char*>(data), size})) {
    // As it is: fromStdU16String would leave a byte order mark out.
    const auto* characters = reinterpret_cast<const QChar*>(m_text.data());
    const QByteArray bytes = QString(characters, static_cast<int>(m_text.size())).toLocal8Bit();
    QJsonParseError error;
    m_document = parseWithLeaks(bytes, error);
    m_certain = bytes.count(':') <= s_sortedInOrder;
    if (error.error != QJsonParseError::NoError) {
        m_message = error.errorString().toStdString();
    }
    host::redirectConsole([this](std::string_view printed) { m_printed += printed; });
}

JsonReference::~JsonReference() {
    host::redirectConsole({});
}

QJsonValue JsonReference::element() const {
    return m_document.isObject()  ? QJsonValue(m_document.object())
           : m_document.isArray() ? QJsonValue(m_document.array())
                                  : QJsonValue(QJsonValue::Null);
}

void JsonReference::require(const QJsonValue& result, const QJsonValue& expected,
                            int messages) const {
    std::string printed;
    for (int i = 0; i < messages; ++i) {
        printed += m_message;
    }
    fuzz::require(m_printed == printed, "printed \"" + m_printed + "\", not \"" + printed + "\"");
    fuzz::require(!m_certain || result == expected, "the result");
}

}  // namespace DOVA::fuzz
