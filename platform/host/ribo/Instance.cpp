#include "host/ribo/Instance.h"

#include <typeinfo>
#include <utility>

namespace ribo {

Instance::Instance(ClassPointer instanceClass)
    : m_class(std::move(instanceClass)),
      m_data(m_class->allocateInstance(), DataDeleter{m_class.get()}) {}

Instance::Instance(ClassPointer instanceClass, std::shared_ptr<void> data)
    : m_class(std::move(instanceClass)), m_data(std::move(data)) {}

Instance::~Instance() = default;

const std::string& Instance::className() const noexcept {
    return m_class->getFullName().text();
}

std::shared_ptr<kaObject> Instance::copy() const {
    std::shared_ptr<void> data = m_data;
    if (!m_class->isHandleClass()) {
        data.reset(m_class->copyInstance(m_data.get()), DataDeleter{m_class.get()});
    }
    return std::shared_ptr<Instance>(new Instance(m_class, std::move(data)));
}

Instance* Instance::of(const kaArray* value) noexcept {
    // There is no class between the two, so one comparison tells as much as a dynamic_cast.
    kaObject* object = kaGetObject(value);
    return object != nullptr && typeid(*object) == typeid(Instance) ? static_cast<Instance*>(object)
                                                                    : nullptr;
}

}  // namespace ribo
