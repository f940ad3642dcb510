#include "toolkit/DVObject.h"

#include <mutex>
#include <unordered_map>

namespace DOVA {

Mutex DVObject::m_lock;

namespace {

std::unordered_map<DVObject::Identifier, const DVObject*>& living() {
    // Never destroyed: front objects with static lifetime die while the process ends.
    static auto* objects = new std::unordered_map<DVObject::Identifier, const DVObject*>;
    return *objects;
}

DVObject::Identifier s_lastIdentifier = 0;

DVObject::Identifier nextIdentifier() {
    constexpr DVObject::Identifier noBuddy = 0xFFFFFFFF;
    DVObject::Identifier& last = s_lastIdentifier;
    std::lock_guard guard(DVObject::m_lock);
    do {
        ++last;
    } while (last == 0 || last == noBuddy || living().count(last) > 0);
    return last;
}

}  // namespace

DVObject::DVObject() : DVObject(nextIdentifier()) {}

DVObject::DVObject(Identifier identifier) : m_identifier(identifier) {
    std::lock_guard guard(m_lock);
    living().emplace(identifier, this);
}

DVObject::~DVObject() {
    leaveTheLiving();
}

bool DVObject::isObjectValid(const DVObject* object, Identifier identifier) {
    std::lock_guard guard(m_lock);
    const auto found = living().find(identifier);
    return found != living().end() && found->second == object;
}

DVObject::Identifier DVObject::lastIdentifier() {
    std::lock_guard guard(m_lock);
    return s_lastIdentifier;
}

void DVObject::leaveTheLiving() {
    std::lock_guard guard(m_lock);
    const auto found = living().find(m_identifier);
    if (found != living().end() && found->second == this) {
        living().erase(found);
    }
}

}  // namespace DOVA
