#pragma once

#include <string>

#include "model/Base.h"
#include "model/Uuid.h"
#include "seam/Platform.h"

/// What every element of the model document has, whatever its kind.
namespace DOVA::seam {

/// A new element of a kind in the model document; empty without a document.
template <class Kind>
tdom::Base newElement(const ModelReference& model) {
    return model ? Kind::create(model, pf::zero::Uuid::generate()) : Kind();
}

inline bool exists(const tdom::Base& element) {
    return static_cast<bool>(element);
}

// Each of these REQUIRES: exists().

/// The name of its kind in messages.
inline std::string typeNameOf(const tdom::Base& element) {
    return element->getTypeName();
}
/// What messages name it by: its tag, or what the document gives one without.
inline std::u16string idOf(const tdom::Base& element) {
    return element->getId();
}
inline void setTag(const tdom::Base& element, const std::u16string& tag) {
    element->setTag(tag);
}

}  // namespace DOVA::seam
