#include "TurnChanges.h"

#include <algorithm>

namespace tdom {

using pf::zero::Change;
using pf::zero::SequenceEdit;

namespace {

template <class Property>
Property* find(std::vector<Property>& properties, std::string_view name) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [name](const Property& each) { return each.name == name; });
    return found == properties.end() ? nullptr : &*found;
}

}  // namespace

void TurnChanges::add(const std::vector<Change>& batch) {
    for (const Change& change : batch) {
        add(change);
    }
}

void TurnChanges::clear() {
    m_elements.clear();
    m_places = {};  // clear() would cost as much as the biggest turn did, turn by turn
}

void TurnChanges::add(const Change& change) {
    Element& element = elementOf(change);
    if (change.kind == Change::Kind::Property) {
        addProperty(element, change);
        return;
    }
    element.exists = element.isNew = change.kind == Change::Kind::Created;
    element.scalars.clear();
    element.sequences.clear();
}

TurnChanges::Element& TurnChanges::elementOf(const Change& change) {
    const auto [place, isFirst] = m_places.try_emplace(change.element, m_elements.size());
    if (isFirst) {
        const bool existed = change.kind != Change::Kind::Created;
        m_elements.push_back({change.element, existed, existed, false, {}, {}});
    }
    return m_elements[place->second];
}

void TurnChanges::addProperty(Element& element, const Change& change) {
    if (element.isNew) {
        return;
    }
    if (const auto* edit = std::get_if<SequenceEdit>(&change.value)) {
        addEdit(element, change.name, *edit);
    } else if (Scalar* const known = find(element.scalars, change.name)) {
        known->now = change.value;
    } else {
        element.scalars.push_back({change.name, change.before, change.value});
    }
}

void TurnChanges::addEdit(Element& element, std::string_view name, const SequenceEdit& edit) {
    Sequence* sequence = find(element.sequences, name);
    if (sequence == nullptr) {
        const std::size_t size = edit.sizeBefore;
        sequence = &element.sequences.emplace_back(Sequence{name, size, size, size == 0, 0, {}});
    }
    sequence->size = edit.sizeAfter();
    sequence->wasEmpty = sequence->wasEmpty || sequence->size == 0;
    if (sequence->wasEmpty) {
        sequence->edits.clear();
        return;
    }
    sequence->moved += edit.removed + edit.inserted.size();
    sequence->edits.push_back(edit);
}

}  // namespace tdom
