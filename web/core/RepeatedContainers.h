#pragma once

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "JsonMarks.h"

namespace DOVA {

/// Finds JSON objects that give one key twice, where Qt's parser (5.15) goes wrong with them: it
/// never frees an array or an object that it drops, so that a page that sends such texts would make
/// the process grow; and of more than sixteen members it may keep any of a key's values instead of
/// the last. Keys that differ only in their escapes are the same key.
///
/// Most texts hold no container inside an object; those cost a search for brackets. The others
/// cost a look at each colon, and one at the keys of those objects that hold a container or have
/// many members.
class RepeatedContainers {
public:
    /// A member of an object: from the first quote of its key to that of the next member's.
    struct Member {
        std::size_t begin;
        std::size_t end;
    };

    /// True if an object repeats a key, one of the times with an array or an object:
    /// {"a":[1],"a":2}. What is no JSON gives any answer, but true if the parser comes to the end
    /// of such an object before it gives the text up.
    static bool occurIn(std::string_view text);
    /// The same, and true if an object of more than sixteen members repeats a key at all.
    static bool occurOrMayMixIn(std::string_view text);

    /// The members that a later one replaces, in every object that holds a container or has more
    /// than sixteen members. The text is JSON. Members inside of one another may come in any order.
    static std::vector<Member> replacedIn(std::string_view text);

private:
    /// Arrays do not matter: as far as the parser goes, they end within their objects.
    struct Object {
        std::size_t firstColon;
        bool holds;  // a container
    };
    struct Colon {
        std::size_t place;
        std::string_view literal;  // of the key before it
        bool isEscaped;
    };
    struct Key {
        std::string_view text;
        std::size_t hash;
        std::size_t index;  // of its colon
    };

    RepeatedContainers(std::string_view text, std::size_t inOrder, std::vector<Member>* replaced)
        : m_text(text), m_inOrder(inOrder), m_replaced(replaced), m_marks(text) {}

    bool walk();
    void addColon(std::size_t colon);
    bool endObject();
    bool readKeys(std::size_t firstColon);
    bool allDifferEarly() const;
    void unescapeKeys(std::size_t size);
    bool isRepeatedAmongFew();
    bool isRepeatedAmongMany();
    void sieveKeys();
    bool meet(std::size_t index, std::size_t next);
    std::size_t beginOfKey(std::size_t index) const;

    const std::string_view m_text;
    const std::size_t m_inOrder;  // of so many members the parser is known to keep the last
    bool m_mayMix = false;        // the object that ends has more
    std::vector<Member>* const m_replaced;  // null: the first find ends the walk
    JsonMarks m_marks;
    boost::container::small_vector<Object, 16> m_open;
    boost::container::small_vector<Colon, 64> m_colons;        // in the open objects
    boost::container::small_vector<Key, 16> m_keys;            // of the object that ends
    std::string m_unescaped;                                   // what some of them view
    boost::container::small_vector<std::uint64_t, 16> m_once;  // hashes, a bit each
    boost::container::small_vector<std::uint64_t, 16> m_again;
};

}  // namespace DOVA
