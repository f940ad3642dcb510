#include "messaging/MessageBus.h"

#include <mutex>
#include <utility>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {

namespace {

struct Choice {
    std::mutex mutex;
    std::shared_ptr<MessageBus> bus;
};

Choice& choice() {
    // Never destroyed: connectors of static lifetime are made and go while the process ends.
    static Choice& s_choice = *new Choice;
    return s_choice;
}

}  // namespace

MessageBus::Place MessageBus::publishPlaced(ConnectorId connector, const std::string& channel,
                                            std::string text) {
    publish(connector, channel, std::move(text));
    return 0;
}

MessageBus::Place MessageBus::lastKnown() const {
    return 0;
}

bool MessageBus::idle() const {
    return true;
}

std::shared_ptr<MessageBus> MessageBus::current() {
    Choice& chosen = choice();
    const std::lock_guard<std::mutex> lock(chosen.mutex);
    if (!chosen.bus) {
        chosen.bus = std::make_shared<InProcessBus>();
    }
    return chosen.bus;
}

void MessageBus::install(std::shared_ptr<MessageBus> bus) {
    Choice& chosen = choice();
    {
        const std::lock_guard<std::mutex> lock(chosen.mutex);
        chosen.bus.swap(bus);
    }
    // The former bus goes here, without the lock: its callbacks' leftovers may ask for the bus.
}

}  // namespace tdom::messaging
