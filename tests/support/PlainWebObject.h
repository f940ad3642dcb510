#pragma once

#include <functional>

#include "core/WebObject2.h"

namespace DOVA::test {

/// A web object that adds nothing to the base and tells when it goes. To be made with new, as the
/// factory does; it goes with its front object.
class PlainWebObject : public WebObject2 {
public:
    explicit PlainWebObject(DVObject2& front) : WebObject2(&front, front.emitters()) {}
    ~PlainWebObject() override {
        if (onDeath) {
            onDeath();
        }
    }

    void handleJSONMessage(const QJsonObject&) override {}

    std::function<void()> onDeath;
};

}  // namespace DOVA::test
