#include "toolkit/DVObject2.h"

#include <algorithm>
#include <vector>

#include "toolkit/DVFactory2.h"

namespace DOVA {

namespace {

struct Pair {
    DVObject2* follower;
    const DVObject2* companion;  // null once it has gone
};

std::vector<Pair>& pairs() {
    // Never destroyed: objects with static lifetime leave it while the process ends.
    static auto* all = new std::vector<Pair>;
    return *all;
}

bool isImplemented(const DVObject2& object) {
    return object.emitters()->destroy.numberOfConnections() > 0;
}

template <class Predicate>
auto findPair(Predicate predicate) {
    return std::find_if(pairs().begin(), pairs().end(), predicate);
}

}  // namespace

DVObject2::DVObject2(std::unique_ptr<DVObject2Emitters> emitters)
    : m_emitters(std::move(emitters)), m_factory(DVFactory2::current()) {}

DVObject2::DVObject2(std::unique_ptr<DVObject2Emitters> emitters, Identifier identifier)
    : DVObject(identifier), m_emitters(std::move(emitters)), m_factory(DVFactory2::current()) {}

DVObject2::~DVObject2() {
    dismantle();
}

DVFactory2* DVObject2::livingFactory() const {
    return DVFactory2::isLiving(m_factory) ? m_factory : nullptr;
}

void DVObject2::own(DVObject2* child) {
    child->m_owner = this;
    m_owned.push_back(child);
}

void DVObject2::dismantle() {
    leaveTheLiving();
    if (m_owner) {
        auto& siblings = m_owner->m_owned;
        siblings.erase(std::find(siblings.begin(), siblings.end(), this));
        m_owner = nullptr;
    }
    // The whole tree goes at once on the display; then the children find nothing left to do.
    leaveDisplay();
    destroyImplementation();
    deleteOwned();
}

// Each level of owners is a call within a call; far down, an owner leaves its own to the one above.
void DVObject2::deleteOwned() {
    constexpr int deepest = 500;
    static int depth = 0;
    ++depth;
    while (!m_owned.empty()) {
        DVObject2* child = m_owned.back();
        m_owned.pop_back();
        child->m_owner = nullptr;
        if (depth > deepest) {
            child->leaveOwnedTo(*this);
        }
        delete child;
    }
    --depth;
}

void DVObject2::leaveOwnedTo(DVObject2& other) {
    for (DVObject2* child : std::exchange(m_owned, {})) {
        other.own(child);
    }
}

// One after the other: dialogs may follow each other at any depth.
void DVObject2::destroyImplementation() {
    for (DVObject2* next = this; next; next = takeFollower()) {
        next->endImplementation();
    }
}

void DVObject2::endImplementation() {
    DVFactory2* maker = std::exchange(m_factory, nullptr);
    if (maker && DVFactory2::isLiving(maker)) {
        maker->destroy.emit(identifier());
    }
    // A backend that has shut down finds nothing by identifier any more; its object is still bound.
    m_emitters->destroy.emit();
    leavePairs();
}

void DVObject2::goWith(const DVObject* object) {
    const auto* companion = dynamic_cast<const DVObject2*>(object);
    if (companion && isImplemented(*companion)) {
        pairs().push_back({this, companion});
    }
}

const DVObject2* DVObject2::companion() const {
    const auto own = findPair([this](const Pair& pair) { return pair.follower == this; });
    return own == pairs().end() ? nullptr : own->companion;
}

void DVObject2::leavePairs() {
    auto& all = pairs();
    const auto follows = [this](const Pair& pair) { return pair.follower == this; };
    all.erase(std::remove_if(all.begin(), all.end(), follows), all.end());
    for (Pair& pair : all) {
        pair.companion = pair.companion == this ? nullptr : pair.companion;
    }
}

// A companion may have lost its implementation with one above it, which only the backend knows.
DVObject2* DVObject2::takeFollower() {
    const auto pair = findPair(
        [](const Pair& each) { return !each.companion || !isImplemented(*each.companion); });
    if (pair == pairs().end()) {
        return nullptr;
    }
    DVObject2* follower = pair->follower;
    pairs().erase(pair);
    return follower;
}

}  // namespace DOVA
