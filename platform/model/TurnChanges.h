#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/Change.h"

namespace tdom {

/// What happened in the models since the last patch, brought together: for every element and
/// property what it was then and what it is now. Costs what the changes cost, however many items
/// the sequences have.
class TurnChanges {
public:
    /// A property with a single value.
    struct Scalar {
        std::string_view name;
        pf::zero::Value before;
        pf::zero::Value now;
    };

    /// A sequence. Once it was empty, only what is in it now counts, and no edits are kept.
    struct Sequence {
        std::string_view name;
        std::size_t sizeBefore;
        std::size_t size;
        bool wasEmpty;
        std::size_t moved;  ///< items that came and went in `edits`
        std::vector<pf::zero::SequenceEdit> edits;
    };

    /// An element that came, went or changed. Properties are kept only for one that stayed.
    struct Element {
        pf::zero::Uuid uuid;
        bool existed;
        bool exists;
        bool isNew;
        std::vector<Scalar> scalars;
        std::vector<Sequence> sequences;
    };

    void add(const std::vector<pf::zero::Change>& batch);
    void clear();

    /// In the order in which they were first touched.
    const std::vector<Element>& elements() const noexcept { return m_elements; }

private:
    void add(const pf::zero::Change& change);
    Element& elementOf(const pf::zero::Change& change);
    static void addProperty(Element& element, const pf::zero::Change& change);
    static void addEdit(Element& element, std::string_view name,
                        const pf::zero::SequenceEdit& edit);

    std::vector<Element> m_elements;
    std::unordered_map<pf::zero::Uuid, std::size_t> m_places;
};

}  // namespace tdom
