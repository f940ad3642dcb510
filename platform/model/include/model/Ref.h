#pragma once

#include <utility>

namespace pf::zero {

/// A counted reference to an object that keeps its own count.
///
/// `T` offers `addRef()` and `removeRef()`; a new object starts with the count 0, so the first
/// `Ref` made from its pointer becomes its first holder. Copying adds a reference, destruction
/// removes one, and the object deletes itself with the last. Not for use from several threads.
template <class T>
class Ref {
public:
    Ref() noexcept = default;
    explicit Ref(T* object) noexcept : m_object(object) {
        if (m_object != nullptr) {
            m_object->addRef();
        }
    }
    Ref(const Ref& other) noexcept : Ref(other.m_object) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}

    /// From a reference to a derived class.
    template <class Derived>
    Ref(const Ref<Derived>& other) noexcept : Ref(other.get()) {}

    ~Ref() {
        if (m_object != nullptr) {
            m_object->removeRef();
        }
    }

    Ref& operator=(Ref other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// The object, still owned by its references; null when empty.
    T* get() const noexcept { return m_object; }

    /// REQUIRES: not empty.
    T* operator->() const noexcept { return m_object; }
    /// REQUIRES: not empty.
    T& operator*() const noexcept { return *m_object; }

    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(const Ref& left, const Ref& right) noexcept {
        return left.m_object == right.m_object;
    }
    friend bool operator!=(const Ref& left, const Ref& right) noexcept { return !(left == right); }

private:
    T* m_object = nullptr;
};

}  // namespace pf::zero
