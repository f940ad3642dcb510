#include "Histogram.h"

#include <algorithm>
#include <cmath>

namespace DOVA::load {

void Histogram::add(std::uint64_t value) {
    ++m_counts[placeOf(value)];
    ++m_count;
    m_largest = std::max(m_largest, value);
}

/// Values below 128 have a place each, then each power of two has 64.
std::size_t Histogram::placeOf(std::uint64_t value) {
    unsigned shift = 0;
    while ((value >> shift) >> (s_stepBits + 1) != 0) {
        ++shift;
    }
    return (std::size_t{shift} << s_stepBits) + (value >> shift);
}

std::uint64_t Histogram::upperEnd(std::size_t place) {
    const std::size_t steps = std::size_t{1} << s_stepBits;
    if (place < 2 * steps) {
        return place;
    }
    const std::size_t shift = (place >> s_stepBits) - 1;
    const std::uint64_t first = place - (shift << s_stepBits);
    return ((first + 1) << shift) - 1;
}

std::uint64_t Histogram::percentile(double share) const {
    const auto rank = std::max<std::uint64_t>(
        1, static_cast<std::uint64_t>(std::ceil(share * static_cast<double>(m_count))));
    std::uint64_t passed = 0;
    for (std::size_t place = 0; place < m_counts.size(); ++place) {
        passed += m_counts[place];
        if (passed >= rank) {
            return std::min(upperEnd(place), m_largest);
        }
    }
    return 0;
}

}  // namespace DOVA::load
