#pragma once

#include <memory>
#include <string>

#include "host/Array.h"
#include "host/ribo/COSClassInfo.h"

namespace ribo {

/// A value of a class: what the class allocated, and a share in the class. Main thread.
class DOVA_HOST_EXPORT Instance final : public kaObject {
public:
    /// A new value of the class, made by its allocateInstance().
    explicit Instance(ClassPointer instanceClass);
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;
    ~Instance() override;

    const std::string& className() const noexcept override;

    /// A copy by the class; for a handle class one that shares this one's data.
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

/// The text that the host shows for a value, in UTF-8, without a line end. For an instance it is
/// the class's full name with the properties that are neither hidden nor constant; an instance
/// among them is only named. Texts, scalar numbers and logicals stand as they are, the rest by size
/// and kind; null gives an empty text. What a getter throws passes through.
DOVA_HOST_EXPORT std::string display(const kaArray* value);

}  // namespace ribo
