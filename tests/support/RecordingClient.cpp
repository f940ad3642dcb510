#include "RecordingClient.h"

namespace DOVA::test {

using tdom::messaging::InProcessBus;
using tdom::messaging::MessageBus;

RecordingClient::RecordingClient()
    : m_bus(std::dynamic_pointer_cast<InProcessBus>(MessageBus::current())),
      m_connector(m_bus->attach("test_client")) {
    m_bus->subscribeTree(m_connector, Root,
                         [this](const std::string& channel, const std::string& text) {
                             m_notes.emplace_back(channel, text);
                         });
}

RecordingClient::~RecordingClient() {
    m_bus->detach(m_connector);
}

void RecordingClient::publish(const std::string& channel, const std::string& text) {
    m_bus->publish(m_connector, channel, text);
}

void RecordingClient::deliver() {
    while (!m_bus->idle()) {
        m_bus->deliver();
    }
}

void RecordingClient::say(const std::string& channel, const std::string& text) {
    publish(channel, text);
    deliver();
}

std::vector<RecordingClient::Note> RecordingClient::take() {
    deliver();
    return std::exchange(m_notes, {});
}

std::vector<std::string> RecordingClient::takeTexts() {
    std::vector<std::string> texts;
    for (Note& note : take()) {
        texts.push_back(std::move(note.second));
    }
    return texts;
}

}  // namespace DOVA::test
