#pragma once

#include <memory>
#include <string>

#include "host/Array.h"
#include "host/ribo/COSClassInfo.h"

namespace ribo {

/// A value of a class: what the class allocated, and a share in the class.
class DOVA_HOST_EXPORT Instance final : public kaObject {
public:
    /// A new value of the class, as its allocate operation makes it.
    explicit Instance(ClassPointer instanceClass);
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;
    ~Instance() override;

    const std::string& className() const noexcept override;

    /// Another value, equal to this one; of a handle class the same value again.
    std::shared_ptr<kaObject> copy() const override;

    /// What the class allocated.
    void* getData() const noexcept { return m_data.get(); }
    const ClassPointer& getClass() const noexcept { return m_class; }

    /// The instance inside a value; null for every other value and for null.
    static Instance* of(const kaArray* value) noexcept;

private:
    /// Frees what a class allocated.
    struct DataDeleter {
        const COSClassInfo* owner;
        void operator()(void* data) const noexcept { owner->deallocateInstance(data); }
    };

    Instance(ClassPointer instanceClass, std::shared_ptr<void> data);

    const ClassPointer m_class;
    // A handle class's copies share it.
    const std::shared_ptr<void> m_data;
};

/// How the host shows a value that does not say itself how: an instance by its class's full name
/// and the values of its visible properties, among which another instance is only named; texts,
/// scalar numbers and logicals as they are; the rest by size and kind; null as an empty text. In
/// UTF-8; no line break is added. What a property's getter throws passes through.
DOVA_HOST_EXPORT std::string display(const kaArray* value);

}  // namespace ribo
