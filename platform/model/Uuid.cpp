#include "model/Uuid.h"

#include <algorithm>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <cstring>

namespace pf::zero {

Uuid Uuid::generate() {
    // Seeded from the system once a thread; a generator that asks it each time costs a system call.
    thread_local boost::uuids::random_generator_mt19937 generator;
    const boost::uuids::uuid random = generator();
    Uuid result;
    std::copy(random.begin(), random.end(), result.m_bytes.begin());
    return result;
}

std::string Uuid::toString() const {
    boost::uuids::uuid value;
    std::copy(m_bytes.begin(), m_bytes.end(), value.begin());
    return boost::uuids::to_string(value);
}

std::u16string Uuid::toU16String() const {
    const std::string text = toString();
    return {text.begin(), text.end()};
}

std::size_t Uuid::hash() const noexcept {
    std::size_t halves[2];
    static_assert(sizeof halves == sizeof m_bytes);
    std::memcpy(halves, m_bytes.data(), sizeof halves);
    return halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15U);
}

}  // namespace pf::zero
