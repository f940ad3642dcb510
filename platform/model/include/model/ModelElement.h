#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/Change.h"
#include "model/Export.h"
#include "model/Ref.h"

namespace pf::zero {

class Model;

/// What a model knows of its elements: a UUID, a type, properties. References own an element, its
/// model does not. On the model's thread only.
class DOVA_MODEL_EXPORT ModelElement {
public:
    /// Called with each property's name and present value.
    using PropertyVisitor = std::function<void(std::string_view name, const Value& value)>;

    ModelElement(const ModelElement&) = delete;
    ModelElement& operator=(const ModelElement&) = delete;

    void addRef() noexcept { ++m_references; }
    /// With the last reference the element leaves its model, which is recorded, and is deleted.
    void removeRef() noexcept;

    const Uuid& getUuid() const noexcept { return m_uuid; }

    /// Null when the element never entered a model, or outlived it. Not a new reference.
    Model* model() const noexcept { return m_model; }

    /// The name of the element's type in change records. Static storage.
    virtual std::string_view typeName() const noexcept = 0;

    /// Calls `visitor` for every property, set or not, in a fixed order. A property without a value
    /// comes as `std::monostate`, a sequence as the edit that makes it from an empty one.
    virtual void visitProperties(const PropertyVisitor& visitor) const = 0;

protected:
    explicit ModelElement(const Uuid& uuid) noexcept : m_uuid(uuid) {}
    virtual ~ModelElement();

    /// Stores `given` and records it under `property`. An equal value changes and records nothing.
    /// Without a listener this is a comparison and an assignment.
    template <class Stored, class Given>
    void write(Stored& stored, const Given& given, std::string_view property) {
        if (isSame(stored, given)) {
            return;
        }
        if (!isRecorded(property)) {
            stored = given;
            return;
        }
        Stored before(given);  // first: what is given may be a part of what is stored
        std::swap(before, stored);
        record(property, toValue(stored), toValue(std::move(before)));
    }

    static Value toValue(bool value) { return Value(std::in_place_type<bool>, value); }
    static Value toValue(std::int32_t value) {
        return Value(std::in_place_type<std::int32_t>, value);
    }
    static Value toValue(std::u16string value) { return Value(std::move(value)); }
    static Value toValue(std::optional<bool> value) { return value ? toValue(*value) : Value(); }

private:
    friend class Model;
    template <class T>
    friend class PrimitiveSequence;

    template <class Stored, class Given>
    static bool isSame(const Stored& stored, const Given& given) noexcept {
        return stored == given;
    }
    // The standard comparison goes unit by unit; this one is several times faster on texts.
    static bool isSame(const std::u16string& stored, const std::u16string_view& given) noexcept {
        const std::size_t bytes = given.size() * sizeof(char16_t);
        return stored.size() == given.size() &&
               (bytes == 0 || std::memcmp(stored.data(), given.data(), bytes) == 0);
    }

    bool isRecorded(std::string_view property) const noexcept;
    void record(std::string_view property, Value value, Value before = {});

    std::uint32_t m_references = 0;
    Model* m_model = nullptr;
    Uuid m_uuid;
};

}  // namespace pf::zero
