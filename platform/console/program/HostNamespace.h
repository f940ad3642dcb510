#pragma once

#include <vector>

#include "host/ribo/factory/RiboMethod.h"

namespace DOVA::console {

/// The namespace "host": what scripts can ask of this program, listed like everything else of the
/// host. Gone with this object.
class HostNamespace {
public:
    explicit HostNamespace(std::vector<ribo::factory::RiboMethod> functions);
    HostNamespace(const HostNamespace&) = delete;
    HostNamespace& operator=(const HostNamespace&) = delete;
    ~HostNamespace();
};

}  // namespace DOVA::console
