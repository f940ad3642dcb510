#include "toolkit/DVBridge.h"

#include <unordered_map>

namespace DOVA {

namespace {

std::unordered_map<StringID, DVBridge*>& bridges() {
    // Never destroyed: a module that ends with the process takes its bridge out.
    static auto* all = new std::unordered_map<StringID, DVBridge*>;
    return *all;
}

}  // namespace

DVBridge::~DVBridge() = default;

DVBridge* DVBridge::getBridge(StringID backend) {
    const auto found = bridges().find(backend);
    return found == bridges().end() ? nullptr : found->second;
}

void DVBridge::registerBridge(StringID backend, DVBridge* bridge) {
    if (bridge) {
        bridges()[backend] = bridge;
    } else {
        bridges().erase(backend);
    }
}

}  // namespace DOVA
