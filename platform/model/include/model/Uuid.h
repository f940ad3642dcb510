#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "model/Export.h"

namespace pf::zero {

/// The name of a model element: 16 bytes, compared byte by byte. A default-constructed one is the
/// nil UUID (all zero).
class DOVA_MODEL_EXPORT Uuid {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    Uuid() noexcept = default;
    explicit Uuid(const Bytes& bytes) noexcept : m_bytes(bytes) {}

    /// A new random UUID (RFC 4122, version 4, variant 10x). Asks the operating system for
    /// randomness once a thread; after that a call costs some nanoseconds. Not for secrets: who
    /// sees enough of them can tell the next. Any thread.
    static Uuid generate();

    const Bytes& bytes() const noexcept { return m_bytes; }

    /// The 36 characters of RFC 4122, in lower case: "xxxxxxxx-xxxx-4xxx-xxxx-xxxxxxxxxxxx".
    std::string toString() const;
    std::u16string toU16String() const;

    /// A hash that spreads random UUIDs evenly.
    std::size_t hash() const noexcept;

    friend bool operator==(const Uuid& left, const Uuid& right) noexcept {
        return left.m_bytes == right.m_bytes;
    }
    friend bool operator!=(const Uuid& left, const Uuid& right) noexcept {
        return !(left == right);
    }
    friend bool operator<(const Uuid& left, const Uuid& right) noexcept {
        return left.m_bytes < right.m_bytes;
    }

private:
    Bytes m_bytes{};
};

}  // namespace pf::zero

template <>
struct std::hash<pf::zero::Uuid> {
    std::size_t operator()(const pf::zero::Uuid& uuid) const noexcept { return uuid.hash(); }
};
