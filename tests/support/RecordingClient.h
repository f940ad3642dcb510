#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "messaging/InProcessBus.h"

namespace DOVA::test {

/// The browser's end of the process's bus: a connector of its own that notes every text the library
/// publishes, in order. Texts travel when deliver() is called, not before.
class RecordingClient {
public:
    /// Channel and text.
    using Note = std::pair<std::string, std::string>;

    static constexpr const char* Root = "/dova2/web";

    RecordingClient();
    ~RecordingClient();
    RecordingClient(const RecordingClient&) = delete;
    RecordingClient& operator=(const RecordingClient&) = delete;

    /// Publishes without delivering.
    void publish(const std::string& channel, const std::string& text);
    /// Delivers until nothing is left.
    void deliver();
    /// Both.
    void say(const std::string& channel, const std::string& text);

    /// What was published since the last call.
    std::vector<Note> take();
    /// The texts of take(), whatever their channels.
    std::vector<std::string> takeTexts();

private:
    std::shared_ptr<tdom::messaging::InProcessBus> m_bus;
    tdom::messaging::MessageBus::ConnectorId m_connector;
    std::vector<Note> m_notes;
};

}  // namespace DOVA::test
