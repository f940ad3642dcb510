#include "messaging/InProcessBus.h"

#include <exception>
#include <utility>

#include "SubscriptionTable.h"
#include "log/Log.h"

namespace tdom::messaging {

namespace {

void report(Subscription& subscription, const std::string& channel, const char* what) {
    if (std::exchange(subscription.reported, true)) {
        return;
    }
    DOVA::log::write(DOVA::log::Level::Error, "messaging",
                     "a callback of channel \"" + channel + "\" threw: " + what);
}

}  // namespace

InProcessBus::InProcessBus() : m_table(std::make_unique<SubscriptionTable>()) {}

InProcessBus::~InProcessBus() = default;

MessageBus::ConnectorId InProcessBus::attach(const std::string& connectorName) {
    const Lock lock(m_mutex);
    m_connectors.emplace(++m_lastConnector, connectorName);
    return m_lastConnector;
}

void InProcessBus::detach(ConnectorId connector) {
    std::vector<Callback> ended;  // destroyed after the lock is gone
    const Lock lock(m_mutex);
    if (m_connectors.erase(connector) > 0) {
        ended = m_table->removeAll(connector);
    }
}

MessageBus::Handle InProcessBus::subscribe(ConnectorId connector, const std::string& channel,
                                           Callback callback) {
    return add(connector, channel, false, std::move(callback));
}

MessageBus::Handle InProcessBus::subscribeTree(ConnectorId connector, const std::string& channel,
                                               Callback callback) {
    return add(connector, channel, true, std::move(callback));
}

MessageBus::Handle InProcessBus::add(ConnectorId connector, const std::string& channel, bool tree,
                                     Callback callback) {
    const Lock lock(m_mutex);
    return m_table->add(connector, channel, tree, std::move(callback));
}

void InProcessBus::unsubscribe(Handle handle) {
    Callback ended;  // destroyed after the lock is gone
    const Lock lock(m_mutex);
    ended = m_table->remove(handle);
}

void InProcessBus::publish(ConnectorId connector, const std::string& channel, std::string text) {
    publishPlaced(connector, channel, std::move(text));
}

MessageBus::Place InProcessBus::publishPlaced(ConnectorId connector, const std::string& channel,
                                              std::string text) {
    Wake wake;
    Place place = 0;
    {
        const Lock lock(m_mutex);
        const std::shared_ptr<const Route>& route = m_table->route(channel);
        if (!route->reachesOtherThan(connector)) {
            return m_nextPlace - 1;
        }
        place = m_nextPlace++;
        m_queue.push_back({place, m_begun, connector, route, std::move(text)});
        wake = takeWake();
    }
    if (wake) {
        (*wake)();
    }
    return place;
}

MessageBus::Place InProcessBus::lastKnown() const {
    const Lock lock(m_mutex);
    return m_lastKnown;
}

/// What is to be called now that texts wait, without the lock; null if that was done or there is
/// nobody to wake.
InProcessBus::Wake InProcessBus::takeWake() {
    return !m_wake || std::exchange(m_wakePending, true) ? nullptr : m_wake;
}

void InProcessBus::setWake(std::function<void()> wake) {
    Wake chosen;
    if (wake) {
        chosen = std::make_shared<const std::function<void()>>(std::move(wake));
    }
    {
        const Lock lock(m_mutex);
        m_wake = chosen;
        m_wakePending = chosen && !m_queue.empty();
        if (!m_wakePending) {
            return;
        }
    }
    (*chosen)();
}

std::size_t InProcessBus::deliver() {
    Lock lock(m_mutex);
    m_wakePending = false;
    const Place end = m_nextPlace;
    const Place outer = m_lastKnown;
    std::size_t delivered = 0;
    while (!m_queue.empty() && m_queue.front().place < end && delivered < largestBatch) {
        const Message message = std::move(m_queue.front());
        m_queue.pop_front();
        m_begun = message.place;
        m_lastKnown = message.lastKnown;
        for (const auto& subscription : message.route->subscriptions) {
            if (subscription->active && subscription->connector != message.from) {
                run(lock, *subscription, message);
            }
        }
        ++delivered;
    }
    m_lastKnown = outer;
    const Wake wake = m_queue.empty() ? nullptr : takeWake();
    lock.unlock();
    if (wake) {
        (*wake)();
    }
    return delivered;
}

bool InProcessBus::idle() const {
    const Lock lock(m_mutex);
    return m_queue.empty();
}

void InProcessBus::run(Lock& lock, Subscription& subscription, const Message& message) {
    ++subscription.running;
    lock.unlock();
    call(subscription, message);
    lock.lock();
    if (--subscription.running > 0 || subscription.active) {
        return;
    }
    Callback ended = std::exchange(subscription.callback, {});
    lock.unlock();
    ended = nullptr;
    lock.lock();
}

void InProcessBus::call(Subscription& subscription, const Message& message) {
    try {
        subscription.callback(message.route->channel, message.text);
    } catch (const std::exception& exception) {
        report(subscription, message.route->channel, exception.what());
    } catch (...) {
        report(subscription, message.route->channel, "something that is no std::exception");
    }
}

}  // namespace tdom::messaging
