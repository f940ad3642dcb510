#include "toolkit/DVObject2.h"

#include <algorithm>
#include <vector>

#include "toolkit/DVFactory2.h"

namespace DOVA {

namespace {

struct Pair {
    DVObject2* follower;
    const DVObject2* companion;
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

void DVObject2::setParent(DVObject* parent) {
    m_emitters->setParent.emit(parent);
}

DVObject* DVObject2::parent() const {
    return m_emitters->getParent.emit();
}

std::vector<DVObject*> DVObject2::children(bool recursive) const {
    return m_emitters->getChildren.emit(recursive);
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

void DVObject2::destroyImplementation() {
    DVFactory2* maker = std::exchange(m_factory, nullptr);
    if (maker && DVFactory2::isLiving(maker)) {
        maker->destroy.emit(identifier());
    }
    // A backend that has shut down finds nothing by identifier any more; its object is still bound.
    m_emitters->destroy.emit();
    endFollowers();
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

// A companion may have lost its implementation with one above it, which only the backend knows.
void DVObject2::endFollowers() {
    const auto isOver = [this](const Pair& pair) {
        return pair.follower == this || pair.companion == this || !isImplemented(*pair.companion);
    };
    for (auto pair = findPair(isOver); pair != pairs().end(); pair = findPair(isOver)) {
        DVObject2* follower = pair->follower;
        pairs().erase(pair);
        if (follower != this) {
            follower->destroyImplementation();
        }
    }
}

}  // namespace DOVA
