#include "Elements.h"

namespace DOVA::seam::items {

const std::vector<std::u16string>& all(const tdom::Base& element) {
    static const std::vector<std::u16string> none;
    const auto combo = tdom::as<tdom::ComboBox>(element);
    return combo ? combo->getItems().items() : none;
}

void append(const tdom::Base& element, const std::vector<std::u16string>& more) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element)) {
        for (const std::u16string& item : more) {
            combo->getItemsMutable().push_back(item);
        }
    }
}

void insert(const tdom::Base& element, std::size_t index, const std::vector<std::u16string>& more) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element)) {
        combo->getItemsMutable().insert(index, more);
    }
}

void erase(const tdom::Base& element, std::size_t index) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element)) {
        combo->getItemsMutable().erase(index);
    }
}

void clear(const tdom::Base& element) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element)) {
        combo->getItemsMutable().clear();
    }
}

}  // namespace DOVA::seam::items
