#include "toolkit/DVObject2.h"

#include <algorithm>

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVObject2::DVObject2(std::unique_ptr<DVObject2Emitters> emitters)
    : m_emitters(std::move(emitters)), m_factory(DVFactory2::current()) {}

DVObject2::DVObject2(std::unique_ptr<DVObject2Emitters> emitters, Identifier identifier)
    : DVObject(identifier), m_emitters(std::move(emitters)), m_factory(DVFactory2::current()) {}

DVObject2::~DVObject2() {
    dismantle();
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
    while (!m_owned.empty()) {
        DVObject2* child = m_owned.back();
        m_owned.pop_back();
        child->m_owner = nullptr;
        delete child;
    }
}

void DVObject2::destroyImplementation() {
    DVFactory2* maker = std::exchange(m_factory, nullptr);
    if (maker && DVFactory2::isLiving(maker)) {
        maker->destroy.emit(identifier());
    }
    // A backend that has shut down finds nothing by identifier any more; its object is still bound.
    m_emitters->destroy.emit();
}

}  // namespace DOVA
