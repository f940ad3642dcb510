#include "HostNamespace.h"

#include <cstdlib>
#include <new>
#include <utility>

#include "host/ribo/COSNamespace.h"
#include "host/ribo/COSNamespaceInfo.h"

namespace DOVA::console {

namespace {

ribo::InternedString name() {
    return ribo::internal::makeInterned("host");
}

class Description : public ribo::COSNamespaceInfo {
public:
    explicit Description(std::vector<ribo::factory::RiboMethod> functions)
        : m_functions(std::move(functions)) {}

    ribo::InternedString getName() const override { return name(); }
    bool isDestructible() const override { return true; }
    bool isLocked() const override { return true; }
    bool canLoadDynamicContent() const override { return false; }

    void listMembers(ribo::COSNamespace& self) const override {
        for (const auto& function : m_functions) {
            self.addFunction(function);
        }
    }

private:
    const std::vector<ribo::factory::RiboMethod> m_functions;
};

}  // namespace

HostNamespace::HostNamespace(std::vector<ribo::factory::RiboMethod> functions) {
    void* storage = std::malloc(sizeof(Description));
    if (storage == nullptr) {
        throw std::bad_alloc();
    }
    ribo::COSNamespace::addNamespace(new (storage) Description(std::move(functions)));
}

HostNamespace::~HostNamespace() {
    if (ribo::COSInterface* space = ribo::COSNamespace::getNamespaceInterface(name())) {
        space->cleanUp(COSGetPublicClient());
    }
}

}  // namespace DOVA::console
