#include "toolkit/StringID.h"

#include <mutex>
#include <unordered_set>

namespace DOVA {

namespace {

const std::string* intern(const std::string& text) {
    // Never destroyed, because identifiers are used while the process ends.
    static auto* mutex = new std::mutex;
    static auto* texts = new std::unordered_set<std::string>;
    std::lock_guard guard(*mutex);
    return &*texts->insert(text).first;
}

}  // namespace

StringID::StringID() : m_text(intern(std::string())) {}

StringID StringID::setStringID(const std::string& text) {
    return StringID(intern(text));
}

}  // namespace DOVA
