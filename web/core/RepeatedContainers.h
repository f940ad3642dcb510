#pragma once

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

#include "JsonMarks.h"

namespace DOVA {

/// Finds JSON objects that give one key twice, one of the times with an array or an object:
/// {"a":[1],"a":2}. Qt's parser (5.15) never frees what it drops there, so that a page that sends
/// such texts would make the process grow; and of more than sixteen members it may keep either of
/// the two. Keys that differ only in their escapes are the same key.
///
/// Most texts hold no container inside an object; those cost a search for brackets. The others
/// cost a look at each colon, and one at the keys of those objects that hold a container.
class RepeatedContainers {
public:
    /// A member of an object: from the first quote of its key to that of the next member's.
    struct Member {
        std::size_t begin;
        std::size_t end;
    };

    /// True if the text has such an object. What is no JSON gives any answer, but true if the
    /// parser comes to the end of such an object before it gives the text up.
    static bool occurIn(std::string_view text);

    /// The members that a later one replaces, in every object that holds a container. The text is
    /// JSON. Members inside of one another may come in any order.
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
    };
    struct Key {
        std::string_view text;
        std::size_t hash;
        std::size_t index;  // of its colon
    };

    RepeatedContainers(std::string_view text, std::vector<Member>* replaced)
        : m_text(text), m_replaced(replaced), m_marks(text) {}

    bool walk();
    void addColon(std::size_t colon);
    bool endObject();
    void readKeys(std::size_t firstColon);
    bool isRepeatedAmongFew();
    bool isRepeatedAmongMany();
    void sieveKeys();
    bool meet(std::size_t index, std::size_t next);
    std::size_t beginOfKey(std::size_t index) const;

    const std::string_view m_text;
    std::vector<Member>* const m_replaced;  // null: the first find ends the walk
    JsonMarks m_marks;
    boost::container::small_vector<Object, 16> m_open;
    boost::container::small_vector<Colon, 64> m_colons;        // in the open objects
    boost::container::small_vector<Key, 16> m_keys;            // of the object that ends
    std::forward_list<std::string> m_unescaped;                // what some of them view
    boost::container::small_vector<std::uint64_t, 16> m_once;  // hashes, a bit each
    boost::container::small_vector<std::uint64_t, 16> m_again;
};

}  // namespace DOVA
