#pragma once

#include <utility>

#include "host/Array.h"

namespace ribo::factory {

/// Any value of the host's language, borrowed or owned, as the parameter or result of a method.
class kaArrayProxy {
public:
    /// No value.
    kaArrayProxy() = default;
    /// Borrows; the value must outlive the proxy. Null is no value.
    explicit kaArrayProxy(const kaArray* value) : m_value(value) {}
    /// Owns.
    explicit kaArrayProxy(host::ArrayPointer value)
        : m_owned(std::move(value)), m_value(m_owned.get()) {}

    /// The value; null when there is none.
    const kaArray* get() const noexcept { return m_value; }

    /// Gives the value away: the owned one, else a copy. Null when there is none.
    host::ArrayPointer release() && {
        return m_owned ? std::move(m_owned) : host::ArrayPointer(kaDuplicateArray(m_value));
    }

private:
    host::ArrayPointer m_owned;
    const kaArray* m_value = nullptr;
};

}  // namespace ribo::factory
