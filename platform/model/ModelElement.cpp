#include "model/ModelElement.h"

#include <utility>

#include "model/Model.h"

namespace pf::zero {

ModelElement::~ModelElement() = default;

void ModelElement::removeRef() noexcept {
    if (--m_references > 0) {
        return;
    }
    // Here and not in the destructor, where the element's own type is already gone.
    if (m_model != nullptr) {
        m_model->remove(*this);
    }
    delete this;
}

bool ModelElement::isRecorded(std::string_view property) const noexcept {
    return m_model != nullptr && m_model->isRecording(property);
}

void ModelElement::record(std::string_view property, Value value, Value before) {
    m_model->record(
        {Change::Kind::Property, m_uuid, property, std::move(value), std::move(before)});
}

}  // namespace pf::zero
