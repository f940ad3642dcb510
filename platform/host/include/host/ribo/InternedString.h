#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "host/Export.h"

namespace ribo {

/// A name of the class-object system. Equal names share one text, which lives as long as the
/// process: comparing and hashing look at its address only. Any thread.
class DOVA_HOST_EXPORT InternedString {
public:
    /// The empty name.
    InternedString();

    const std::string& text() const noexcept { return *m_text; }
    bool isEmpty() const noexcept { return m_text->empty(); }

    friend bool operator==(InternedString left, InternedString right) noexcept {
        return left.m_text == right.m_text;
    }
    friend bool operator!=(InternedString left, InternedString right) noexcept {
        return left.m_text != right.m_text;
    }

private:
    friend struct std::hash<InternedString>;
    friend class InternedTable;
    explicit InternedString(const std::string* text) noexcept : m_text(text) {}

    const std::string* m_text;
};

namespace internal {

/// The name with this text (UTF-8).
DOVA_HOST_EXPORT InternedString makeInterned(std::string&& text);

}  // namespace internal
}  // namespace ribo

template <>
struct std::hash<ribo::InternedString> {
    std::size_t operator()(ribo::InternedString name) const noexcept {
        return std::hash<const std::string*>()(name.m_text);
    }
};
