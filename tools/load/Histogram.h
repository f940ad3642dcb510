#pragma once

#include <array>
#include <cstdint>

namespace DOVA::load {

/// How long things took, in whole units, for any number of them in the same few kilobytes. A
/// percentile is at most 1.6 % too large; the largest value is exact.
class Histogram {
public:
    void add(std::uint64_t value);
    std::uint64_t count() const { return m_count; }
    std::uint64_t largest() const { return m_largest; }
    /// The value below or at which this share (0 to 1) of all lies; 0 when there is none.
    std::uint64_t percentile(double share) const;

private:
    /// 64 steps for each power of two.
    static constexpr unsigned s_stepBits = 6;

    static std::size_t placeOf(std::uint64_t value);
    static std::uint64_t upperEnd(std::size_t place);

    std::array<std::uint64_t, (64 - s_stepBits + 1) << s_stepBits> m_counts{};
    std::uint64_t m_count = 0;
    std::uint64_t m_largest = 0;
};

}  // namespace DOVA::load
