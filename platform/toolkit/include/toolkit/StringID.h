#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "toolkit/Export.h"

namespace DOVA {

/// An interned text: as cheap to copy and compare as a pointer. Any thread.
class DOVA_TOOLKIT_EXPORT StringID {
public:
    /// The identifier of the empty text.
    StringID();
    /// The identifier of `text`; equal texts give equal identifiers. Lives until the process ends.
    static StringID setStringID(const std::string& text);

    const std::string& text() const { return *m_text; }
    bool operator==(const StringID& other) const { return m_text == other.m_text; }
    bool operator!=(const StringID& other) const { return m_text != other.m_text; }

private:
    explicit StringID(const std::string* text) : m_text(text) {}

    const std::string* m_text;
    friend struct std::hash<StringID>;
};

}  // namespace DOVA

template <>
struct std::hash<DOVA::StringID> {
    std::size_t operator()(const DOVA::StringID& id) const noexcept {
        return std::hash<const void*>()(id.m_text);
    }
};
