#include "host/ribo/InternedString.h"

#include <mutex>
#include <unordered_set>
#include <utility>

namespace ribo {

/// All names. Never destroyed: names live as long as the process.
class InternedTable {
public:
    static InternedTable& instance() {
        static InternedTable& table = *new InternedTable;
        return table;
    }

    InternedString intern(std::string&& text) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return InternedString(&*m_texts.insert(std::move(text)).first);
    }

private:
    std::mutex m_mutex;
    std::unordered_set<std::string> m_texts;
};

InternedString::InternedString() {
    static const InternedString empty = internal::makeInterned({});
    *this = empty;
}

namespace internal {

InternedString makeInterned(std::string&& text) {
    return InternedTable::instance().intern(std::move(text));
}

}  // namespace internal
}  // namespace ribo
