#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/PropertyName.h"

namespace tdom {

/// Which properties of the elements a page wants to hear of.
class DocumentFilter {
public:
    /// All of them.
    DocumentFilter() = default;
    explicit DocumentFilter(std::vector<std::string> names) : m_names(std::move(names)) {
        std::sort(m_names->begin(), m_names->end());
    }

    /// The tag is always wanted: by it pages find an element.
    bool holds(std::string_view property) const noexcept {
        return !m_names || property == PropertyName::tag ||
               std::find(m_names->begin(), m_names->end(), property) != m_names->end();
    }

    friend bool operator==(const DocumentFilter& left, const DocumentFilter& right) {
        return left.m_names == right.m_names;
    }

private:
    std::optional<std::vector<std::string>> m_names;
};

}  // namespace tdom
