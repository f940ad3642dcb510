#pragma once

#include <QJsonDocument>
#include <functional>
#include <string>
#include <vector>

#include "core/WebObject2.h"

namespace DOVA::test {

/// A web object that adds nothing to the base and notes the messages of the client. To be made
/// with new, as the factory does; it goes with its front object.
class PlainWebObject : public WebObject2 {
public:
    explicit PlainWebObject(DVObject2& front) : WebObject2(&front, front.emitters()) {}
    ~PlainWebObject() override {
        if (onDeath) {
            onDeath();
        }
    }

    void handleJSONMessage(const QJsonObject& message) override {
        const auto then = onMessage;  // this object may not outlive the call
        messages.push_back(QJsonDocument(message).toJson(QJsonDocument::Compact).toStdString());
        if (then) {
            then();
        }
    }

    using WebObject2::state;

    std::vector<std::string> messages;
    std::function<void()> onMessage;
    std::function<void()> onDeath;
};

}  // namespace DOVA::test
