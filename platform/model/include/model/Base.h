#pragma once

#include <string>
#include <string_view>

#include "model/Export.h"
#include "model/Model.h"
#include "model/ModelElement.h"
#include "model/PropertyName.h"
#include "model/Ref.h"
#include "model/Uuid.h"

namespace tdom {

/// A handle to an element of the model document: one pointer, cheap to copy. Handles share the
/// element: it leaves its model and is deleted with the last of them. An empty handle has no
/// element; only `operator bool`, comparison and `as` may be used on it. One thread, the model's.
///
/// Every kind of element is a pair: the handle (`Button`) and what it points to (`Button::Impl`).
/// A handle converts to the handles of its bases; `as` goes the other way.
class DOVA_MODEL_EXPORT Base {
public:
    class Impl;

    Base() noexcept = default;

    explicit operator bool() const noexcept { return static_cast<bool>(m_impl); }

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept { return m_impl.get(); }

    friend bool operator==(const Base& left, const Base& right) noexcept {
        return left.m_impl == right.m_impl;
    }
    friend bool operator!=(const Base& left, const Base& right) noexcept {
        return !(left == right);
    }

protected:
    /// A new element in `model`; an empty handle when `model` is empty or has `uuid` already.
    template <class Handle>
    static Handle createIn(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid);

private:
    template <class Handle>
    friend Handle as(const Base& handle) noexcept;

    template <class Handle>
    static Handle holding(Impl* impl) noexcept;

    pf::zero::Ref<Impl> m_impl;
};

/// The base of every other handle: `Self` is the handle, `Parent` the one that it extends.
template <class Self, class Parent>
class HandleOf : public Parent {
public:
    /// REQUIRES: not empty.
    auto* operator->() const noexcept {
        return static_cast<typename Self::Impl*>(static_cast<const Base&>(*this).operator->());
    }
};

/// A handle to a kind that has elements of its own, not only kinds that extend it.
template <class Self, class Parent>
class KindOf : public HandleOf<Self, Parent> {
public:
    /// A new element in `model`. Empty when `model` is empty or has `uuid` already.
    static Self create(const pf::zero::Ref<pf::zero::Model>& model,
                       const pf::zero::Uuid& uuid = pf::zero::Uuid::generate()) {
        return Base::createIn<Self>(model, uuid);
    }
};

/// A property of an element: its value, and the name that change records give it.
template <class Stored, const std::string_view& Name>
struct Property {
    static constexpr std::string_view name = Name;
    Stored value{};
};

/// The element behind every handle. Setters record a change only when the value differs.
class DOVA_MODEL_EXPORT Base::Impl : public pf::zero::ModelElement {
public:
    /// The dynamic type of an element: its name, and the type that it extends (null for `Base`).
    struct Type {
        std::string_view name;
        const Type* base;
    };
    static const Type s_type;

    /// A text by which others may address the element; empty at first. May occur more than once.
    void setTag(std::u16string_view tag) { write(m_tag, tag); }
    const std::u16string& getTag() const noexcept { return m_tag.value; }

    /// The tag, or the UUID's text when the tag is empty. The page addresses elements by it.
    std::u16string getId() const;

    /// "Button", "CheckBox", "ComboBox", "Edit", "Text" ...
    std::string getTypeName() const { return std::string(m_type.name); }
    std::string_view typeName() const noexcept override { return m_type.name; }

    /// Whether the element is of that type or extends it.
    bool isA(const Type& type) const noexcept;

    void visitProperties(const PropertyVisitor& visitor) const override;

protected:
    Impl(const Type& type, const pf::zero::Uuid& uuid) noexcept
        : ModelElement(uuid), m_type(type) {}

    using ModelElement::write;
    template <class Stored, const std::string_view& Name, class Given>
    void write(Property<Stored, Name>& property, const Given& given) {
        write(property.value, given, Name);
    }
    template <class... Properties>
    static void visitEach(const PropertyVisitor& visitor, const Properties&... properties) {
        (visitor(Properties::name, toValue(properties.value)), ...);
    }

private:
    const Type& m_type;
    Property<std::u16string, PropertyName::tag> m_tag;
};

template <class Handle>
Handle Base::createIn(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid) {
    if (!model) {
        return {};
    }
    const auto handle = holding<Handle>(new typename Handle::Impl(uuid));
    return model->insert(*handle.operator->()) ? handle : Handle();
}

template <class Handle>
Handle Base::holding(Impl* impl) noexcept {
    Handle handle;
    handle.m_impl = pf::zero::Ref<Impl>(impl);
    return handle;
}

/// The same element as a `Handle`; empty when `handle` is empty or its element is of another type.
template <class Handle>
Handle as(const Base& handle) noexcept {
    const bool fits = handle && handle->isA(Handle::Impl::s_type);
    return Base::holding<Handle>(fits ? handle.m_impl.get() : nullptr);
}

}  // namespace tdom
