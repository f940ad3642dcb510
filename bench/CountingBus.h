#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "messaging/MessageBus.h"

namespace bench {

/// A bus that takes every text and delivers only what the benchmark tells it to, so that the
/// library alone is measured.
class CountingBus : public tdom::messaging::MessageBus {
public:
    static CountingBus& instance() {
        static const auto bus = [] {
            auto made = std::make_shared<CountingBus>();
            install(made);
            return made;
        }();
        return *bus;
    }

    ConnectorId attach(const std::string&) override { return 1; }
    void detach(ConnectorId) override {}
    Handle subscribe(ConnectorId, const std::string& channel, Callback callback) override {
        m_callbacks.emplace_back(channel, std::move(callback));
        return static_cast<Handle>(m_callbacks.size());
    }
    Handle subscribeTree(ConnectorId self, const std::string& channel, Callback callback) override {
        return subscribe(self, channel, std::move(callback));
    }
    void unsubscribe(Handle handle) override { m_callbacks[handle - 1].second = nullptr; }
    void publish(ConnectorId, const std::string&, std::string text) override {
        ++texts;
        bytes += text.size();
    }

    /// The callback of the last subscription of the channel.
    Callback& callback(const std::string& channel) {
        for (auto entry = m_callbacks.rbegin(); entry != m_callbacks.rend(); ++entry) {
            if (entry->first == channel && entry->second) {
                return entry->second;
            }
        }
        throw std::runtime_error("nobody subscribed " + channel);
    }
    /// Delivers a text as the client would publish it.
    void deliver(const std::string& channel, const std::string& text) {
        callback(channel)(channel, text);
    }

    std::size_t texts = 0;
    std::size_t bytes = 0;

private:
    std::vector<std::pair<std::string, Callback>> m_callbacks;
};

}  // namespace bench
