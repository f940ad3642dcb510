#pragma once

#include <memory>

#include "toolkit/DVObject2.h"

namespace DOVA::test {

/// A front object with an identifier of the test's choice. No backend makes anything for it.
class GivenObject : public DVObject2 {
public:
    explicit GivenObject(Identifier identifier)
        : DVObject2(std::make_unique<DVObject2Emitters>(), identifier) {}
};

}  // namespace DOVA::test
