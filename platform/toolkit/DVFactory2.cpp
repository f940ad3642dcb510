#include "toolkit/DVFactory2.h"

#include <unordered_map>
#include <unordered_set>

namespace DOVA {

namespace {

struct Backends {
    std::unordered_map<StringID, DVFactory2*> factories;
    std::unordered_set<DVFactory2*> living;
    StringID chosen = StringID::setStringID("web");
};

Backends& backends() {
    // Never destroyed: front objects with static lifetime ask for it while the process ends.
    static auto* all = new Backends;
    return *all;
}

}  // namespace

DVFactory2::DVFactory2(DVBridge* bridge) : m_bridge(bridge) {
    backends().living.insert(this);
}

DVFactory2::~DVFactory2() {
    backends().living.erase(this);
    auto& factories = backends().factories;
    for (auto entry = factories.begin(); entry != factories.end();) {
        entry = entry->second == this ? factories.erase(entry) : std::next(entry);
    }
}

void DVFactory2::registerFactory(const StringID& backend, DVFactory2* factory) {
    if (factory) {
        backends().factories[backend] = factory;
    } else {
        backends().factories.erase(backend);
    }
}

DVFactory2* DVFactory2::getFactory(const StringID& backend) {
    const auto found = backends().factories.find(backend);
    return found == backends().factories.end() ? nullptr : found->second;
}

void DVFactory2::chooseBackend(const StringID& backend) {
    backends().chosen = backend;
}

DVFactory2* DVFactory2::current() {
    return getFactory(backends().chosen);
}

bool DVFactory2::isLiving(DVFactory2* factory) {
    return backends().living.count(factory) > 0;
}

}  // namespace DOVA
