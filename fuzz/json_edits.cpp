// A script edits an array and an object in turn. Each two bytes of the input are an edit and its
// place; after each, both are compared with a plain list and a plain map of texts, and a copy that
// was made before with what it was then.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "host/Console.h"
#include "scripting/JSONArrayFunctions.h"
#include "scripting/JSONObjectFunctions.h"

namespace {

using namespace DOVA::web;

const std::u16string s_texts[] = {u"[]", u"{}", u"[1,[2]]", u"{\"a\":{\"b\":[]}}", u"[\"\u00e9\"]"};
const std::u16string s_keys[] = {u"",           u"a",      u"b",          u"\u00e9",
                                 u"\U0001F600", u"\uffee", u"a\U0001F600"};

template <class List>
const auto& pick(const List& list, std::size_t number) {
    return list[number % std::size(list)];
}

/// What the array and the object hold, as it is written.
struct Model {
    std::u16string array() const {
        std::u16string text;
        for (const std::u16string& element : list) {
            text += (text.empty() ? u"" : u",") + element;
        }
        return u"[" + text + u"]";
    }
    std::u16string object() const {
        std::u16string text;
        for (const auto& [key, element] : members) {
            text.append(text.empty() ? u"\"" : u",\"").append(key).append(u"\":").append(element);
        }
        return u"{" + text + u"}";
    }

    std::vector<std::u16string> list;
    std::map<std::u16string, std::u16string> members;
};

class Edits {
public:
    void edit(unsigned operation, unsigned place) {
        const std::u16string& text = pick(s_texts, place / 16);
        const int index = static_cast<int>(place % 16) - 2;
        switch (operation % 8) {
            case 0:
                insert(index, text);
                break;
            case 1:
                replace(index, text);
                break;
            case 2:
                remove(index);
                break;
            case 3:
                arrayAppendFromJSON(m_array, text);
                m_model.list.push_back(text);
                break;
            case 4:
                arrayPrependFromJSON(m_array, text);
                m_model.list.insert(m_model.list.begin(), text);
                break;
            case 5:
                objectInsertFromJSON(m_object, pick(s_keys, place), text);
                m_model.members[pick(s_keys, place)] = text;
                break;
            case 6:
                objectRemove(m_object, pick(s_keys, place));
                m_model.members.erase(pick(s_keys, place));
                break;
            default:
                nest(place);
        }
    }

    bool holds() const {
        const auto compact = JSONFormat::Compact;
        bool same = arrayToJSON(m_array, compact) == m_model.array() &&
                    objectToJSON(m_object, compact) == m_model.object() &&
                    arrayToJSON(m_copy, compact) == m_copied;
        for (std::size_t i = 0; i < m_model.list.size(); ++i) {
            const int index = static_cast<int>(i);
            same = same && arrayValueToJSON(m_array, index, compact) == m_model.list[i] &&
                   arrayContainsFromJSON(m_array, m_model.list[i]);
        }
        std::vector<std::u16string> keys;
        for (const auto& [key, element] : m_model.members) {
            keys.push_back(key);
            same = same && objectValueToJSON(m_object, key, compact) == element;
        }
        return same && objectGetKeys(m_object) == keys;
    }

    int messages = 0;

private:
    int length() const { return static_cast<int>(m_model.list.size()); }

    void insert(int index, const std::u16string& text) {
        arrayInsertFromJSON(m_array, index, text);
        if (index >= 0 && index <= length()) {
            m_model.list.insert(m_model.list.begin() + index, text);
        } else {
            ++messages;
        }
    }

    void replace(int index, const std::u16string& text) {
        arrayReplaceFromJSON(m_array, index, text);
        if (index >= 0 && index < length()) {
            m_model.list[static_cast<std::size_t>(index)] = text;
        } else {
            ++messages;
        }
    }

    void remove(int index) {
        m_array.removeAt(index);
        if (index >= 0 && index < length()) {
            m_model.list.erase(m_model.list.begin() + index);
        }
    }

    /// Values inside of one another, and a copy, which later edits must not reach. What is nested
    /// stays small.
    void nest(unsigned place) {
        m_copy = m_array;
        m_copied = m_model.array();
        if (m_copied.size() < 100) {
            objectInsertValue(m_object, pick(s_keys, place), m_array);
            m_model.members[pick(s_keys, place)] = m_copied;
            m_array.append(m_array);
            m_model.list.push_back(m_copied);
        }
    }

    QJsonArray m_array;
    QJsonObject m_object;
    QJsonArray m_copy;
    std::u16string m_copied = u"[]";
    Model m_model;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Edits edits;
    int printed = 0;
    host::redirectConsole([&](std::string_view) { ++printed; });
    for (std::size_t i = 0; i + 1 < std::min<std::size_t>(size, 200); i += 2) {
        edits.edit(data[i], data[i + 1]);
        if (!edits.holds() || printed != edits.messages) {
            std::cerr << "edit " << i / 2 << " came out otherwise\n";
            std::abort();
        }
    }
    host::redirectConsole({});
    return 0;
}
