#pragma once

#include <deque>
#include <mutex>
#include <unordered_map>

#include "messaging/MessageBus.h"

namespace tdom::messaging {

struct Route;
struct Subscription;
class SubscriptionTable;

/// The bus of a single process: a queue, a wake-up, and deliver() that empties the queue.
///
/// The thread that calls deliver() is the delivery thread; only one may. There is one total order
/// over all channels: the order in which publish() was entered. A text that nobody else hears at
/// the moment of publishing is dropped there and costs one look-up. The queue is not bounded.
class DOVA_MESSAGING_EXPORT InProcessBus : public MessageBus {
public:
    InProcessBus();
    ~InProcessBus() override;

    ConnectorId attach(const std::string& connectorName) override;
    void detach(ConnectorId connector) override;
    Handle subscribe(ConnectorId connector, const std::string& channel, Callback callback) override;
    Handle subscribeTree(ConnectorId connector, const std::string& channel,
                         Callback callback) override;
    void unsubscribe(Handle handle) override;
    void publish(ConnectorId connector, const std::string& channel, std::string text) override;
    Place publishPlaced(ConnectorId connector, const std::string& channel,
                        std::string text) override;
    Place lastKnown() const override;

    /// Sets what asks the delivery thread to call deliver(). It runs on the publishing thread,
    /// without a lock held, once for each batch: for the first text that is queued after
    /// deliver() began; else by deliver() itself, at its end, when texts are left. It is called at
    /// once when texts are waiting already. It must not throw.
    /// An empty function takes it back.
    void setWake(std::function<void()> wake);

    /// So many texts take about a millisecond when they are heard by a gateway.
    static constexpr std::size_t largestBatch = 1000;

    /// Delivers what was queued when it began, but at most `largestBatch` texts, and returns how
    /// many they were; the rest, and what callbacks publish, waits for the next call, so that the
    /// delivery thread gets at its other work in between. Called again from within a callback it
    /// goes on with the texts that are left, in order. The bus must outlive the call.
    std::size_t deliver();

    bool idle() const override;

private:
    struct Message {
        Place place;
        Place lastKnown;
        ConnectorId from;
        std::shared_ptr<const Route> route;
        std::string text;
    };
    using Lock = std::unique_lock<std::mutex>;
    using Wake = std::shared_ptr<const std::function<void()>>;

    Handle add(ConnectorId connector, const std::string& channel, bool tree, Callback callback);
    Wake takeWake();
    static void run(Lock& lock, Subscription& subscription, const Message& message);
    static void call(Subscription& subscription, const Message& message);

    mutable std::mutex m_mutex;
    std::unique_ptr<SubscriptionTable> m_table;
    std::unordered_map<ConnectorId, std::string> m_connectors;
    std::deque<Message> m_queue;
    Wake m_wake;
    Place m_nextPlace = 1;
    /// Of the text whose delivery began last, and what the publisher of the present one knew.
    Place m_begun = 0;
    Place m_lastKnown = 0;
    ConnectorId m_lastConnector = 0;
    bool m_wakePending = false;
};

}  // namespace tdom::messaging
