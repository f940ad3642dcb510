#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "messaging/InProcessBus.h"
#include "model/DocumentMirror.h"
#include "model/MessageService.h"
#include "model/Model.h"

namespace model_test {

/// A mirror, a page that notes what it hears, and a loop of which each turn ends when told so.
class MirrorFixture : public testing::Test {
protected:
    MirrorFixture() {
        tdom::messaging::MessageBus::install(m_bus);
        m_mirror = std::make_unique<tdom::DocumentMirror>(
            [this](std::function<void()> call) { m_later.push_back(std::move(call)); });
        m_bus->subscribe(m_page, tdom::tdom_channel,
                         [this](auto&, auto& text) { m_texts.push_back(text); });
    }
    ~MirrorFixture() override {
        m_mirror = nullptr;
        tdom::messaging::MessageBus::install(nullptr);
    }

    void publish(const std::string& text) {
        m_bus->publish(m_page, tdom::tdom_channel, text);
        m_bus->deliver();
    }
    void ask() { publish(R"({"snapshot":"page"})"); }

    /// Ends the turn and gives the messages that the page hears of it.
    QJsonArray endTurn() {
        for (const auto& call : std::exchange(m_later, {})) {
            call();
        }
        m_bus->deliver();
        QJsonArray messages;
        for (const std::string& text : std::exchange(m_texts, {})) {
            messages.append(QJsonDocument::fromJson(QByteArray::fromStdString(text)).object());
        }
        return messages;
    }

    static std::string compact(const QJsonArray& messages) {
        return QJsonDocument(messages).toJson(QJsonDocument::Compact).toStdString();
    }

    const std::shared_ptr<tdom::messaging::InProcessBus> m_bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId m_page = m_bus->attach("page");
    std::vector<std::function<void()>> m_later;
    std::vector<std::string> m_texts;
    std::unique_ptr<tdom::DocumentMirror> m_mirror;
    pf::zero::Ref<pf::zero::Model> m_model = pf::zero::Model::create({});
};

}  // namespace model_test
