#pragma once

#include <utility>

namespace pf::zero {

/// A counted reference to an object that keeps its own count.
///
/// `T` has `addRef()` and `removeRef()`, and starts with the count 0. Each Ref is one reference;
/// the object deletes itself with the last. All references to an object belong to one thread.
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

    /// The object, not a new reference; null when empty.
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
