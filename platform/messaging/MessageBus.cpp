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

std::shared_ptr<MessageBus> MessageBus::current() {
    Choice& chosen = choice();
    const std::lock_guard<std::mutex> lock(chosen.mutex);
    if (!chosen.bus)
        chosen.bus = std::make_shared<InProcessBus>();
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
