#pragma once

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <forward_list>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace DOVA {

/// Finds JSON objects that give one key twice, the earlier time with an array or an object:
/// {"a":[1],"a":2}. Qt's parser (5.15) never frees the earlier one, so a page that sends such texts
/// would make the process grow. Keys that differ only in their escapes are the same key.
///
/// Most texts hold no container inside an object; those cost a search for colons.
class RepeatedContainers {
public:
    /// True if the text has such an object, complete or not. What is no JSON gives any answer.
    static bool occurIn(const std::string& text);

private:
    explicit RepeatedContainers(std::string_view text) : m_text(text) {}

    bool scan();
    bool readString();
    bool readKey(std::string_view literal);
    std::string_view keyText(std::string_view literal);
    void open();
    void close();

    const std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_containers = 0;                            // opened so far
    boost::container::small_vector<std::size_t, 16> m_open;  // the numbers of those that are open
    std::forward_list<std::string> m_unescaped;              // what keyText() answers views of
    /// Containers by number, with those of their keys that have held one. Ordered and not hashed:
    /// the keys come from a page, which might choose them to collide.
    std::set<std::pair<std::size_t, std::string_view>> m_holders;
};

}  // namespace DOVA
