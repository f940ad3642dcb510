#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "model/ModelElement.h"
#include "model/SequenceEdit.h"

namespace pf::zero {

/// An ordered sequence of primitive items (`bool`, `std::int32_t` or `std::u16string`) that is a
/// property of an element. Each modification is one change of the model, however many items it
/// moves; its record holds only the items that came. On the model's thread.
template <class T>
class PrimitiveSequence {
public:
    using const_iterator = typename std::vector<T>::const_iterator;
    using const_reference = typename std::vector<T>::const_reference;

    /// Belongs to `owner` as a member; its changes are recorded as those of `property` (static
    /// storage).
    PrimitiveSequence(ModelElement& owner, std::string_view property) noexcept
        : m_owner(owner), m_property(property) {}
    PrimitiveSequence(const PrimitiveSequence&) = delete;
    PrimitiveSequence& operator=(const PrimitiveSequence&) = delete;

    std::size_t size() const noexcept { return m_items.size(); }
    bool empty() const noexcept { return m_items.empty(); }
    /// REQUIRES: index < size().
    const_reference operator[](std::size_t index) const { return m_items[index]; }
    const_iterator begin() const noexcept { return m_items.begin(); }
    const_iterator end() const noexcept { return m_items.end(); }
    const std::vector<T>& items() const noexcept { return m_items; }

    /// Appends one item.
    void push_back(T item) {
        m_items.push_back(std::move(item));
        recordEdit(size() - 1, 0, 1);
    }

    /// Puts `items` before position `index`, in their order; an index beyond the end appends. No
    /// items make no change. REQUIRES: `items` is not this sequence's own `items()`.
    void insert(std::size_t index, const std::vector<T>& items) {
        if (items.empty()) {
            return;
        }
        const std::size_t place = std::min(index, size());
        m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(place), items.begin(),
                       items.end());
        recordEdit(place, 0, items.size());
    }

    /// Takes one item out; an index beyond the end changes nothing.
    void erase(std::size_t index) {
        if (index >= size()) {
            return;
        }
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(index));
        recordEdit(index, 1, 0);
    }

    /// Empties the sequence; an empty one does not change.
    void clear() {
        if (empty()) {
            return;
        }
        const std::size_t count = size();
        m_items.clear();
        recordEdit(0, count, 0);
    }

    /// The edit that makes this sequence from an empty one.
    SequenceEdit whole() const { return edit(0, 0, size()); }

private:
    SequenceEdit edit(std::size_t index, std::size_t removed, std::size_t inserted) const {
        const auto first = m_items.begin() + static_cast<std::ptrdiff_t>(index);
        return {index,
                removed,
                {first, first + static_cast<std::ptrdiff_t>(inserted)},
                size() + removed - inserted};
    }

    void recordEdit(std::size_t index, std::size_t removed, std::size_t inserted) {
        if (m_owner.isRecorded(m_property)) {
            m_owner.record(m_property, edit(index, removed, inserted));
        }
    }

    ModelElement& m_owner;
    std::string_view m_property;
    std::vector<T> m_items;
};

}  // namespace pf::zero
