#pragma once

#include <cstdint>

namespace WIRO {

class Connection;

namespace detail {

struct Promise;

/// Two or more connections of an emitter at one moment.
struct ConnectionList {
    unsigned size;
    Connection* entries[1];  // `size` of them
};

/// What an emitter delivers to, in one word: an address, whose lowest bits say of what. 0 is
/// nobody. A promise has its highest bits, too, so that its end is known without a look at the
/// promise: that may be gone with the module that gave it.
class Links {
public:
    enum Kind : std::uintptr_t { One = 0, List = 1, Promised = 2, BeingMade = 3 };

    constexpr Links() = default;
    explicit Links(const Connection* connection) : Links(connection, One) {}
    explicit Links(const ConnectionList* list) : Links(list, List) {}
    /// Of an emitter that is so many bytes behind the start of its set. REQUIRES: fits().
    Links(const Promise* promise, std::uintptr_t place)
        : Links(addressOf(promise) | (place << s_placeShift) | Promised) {}
    static bool fits(const Promise* promise, std::uintptr_t place) {
        return addressOf(promise) >> s_placeShift == 0 && place >> (64 - s_placeShift) == 0;
    }

    bool areNone() const { return m_word == 0; }
    Kind kind() const { return static_cast<Kind>(m_word & s_kinds); }
    bool arePromised() const { return (m_word & Promised) != 0; }

    /// Each of these REQUIRES its kind, and that they are not marked as sure. The first gives null
    /// for nobody.
    Connection* one() const { return to<Connection>(0); }
    const ConnectionList* list() const { return to<const ConnectionList>(List); }
    const Promise* promise() const { return to<const Promise>((place() << s_placeShift) + kind()); }
    std::uintptr_t place() const { return m_word >> s_placeShift; }
    Links beingMade() const { return Links(m_word | BeingMade); }

    /// Of what an emission notes: it has seen that the emitter still delivers to them.
    Links markedSure() const { return Links(m_word | s_sure); }
    Links unmarked() const { return Links(m_word & ~s_sure); }
    bool areSure() const { return (m_word & s_sure) != 0; }

    friend bool operator==(Links left, Links right) { return left.m_word == right.m_word; }
    friend bool operator!=(Links left, Links right) { return left.m_word != right.m_word; }

private:
    static constexpr std::uintptr_t s_kinds = 3;
    static constexpr std::uintptr_t s_sure = 4;
    static constexpr unsigned s_placeShift = 48;  // no address in a process is longer

    explicit Links(std::uintptr_t word) : m_word(word) {}
    Links(const void* address, Kind kind) : m_word(addressOf(address) | kind) {}

    static std::uintptr_t addressOf(const void* object) {
        return reinterpret_cast<std::uintptr_t>(object);
    }

    template <class T>
    T* to(std::uintptr_t marks) const {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the address without its marks.
        return reinterpret_cast<T*>(m_word - marks);
    }

    std::uintptr_t m_word = 0;
};

}  // namespace detail
}  // namespace WIRO
