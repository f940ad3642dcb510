#pragma once

#include <deque>
#include <mutex>
#include <unordered_map>

#include "messaging/MessageBus.h"

namespace tdom::messaging {

struct Route;
struct Subscription;
class SubscriptionTable;

/// The bus of a single process: a queue, a wake-up, and deliver(), which empties the queue.
///
/// The thread that calls deliver() is the delivery thread; only one may. Texts are delivered in one
/// order over all channels, in which they were published. A text that nobody else hears when it is
/// published is dropped there and costs one look-up. The queue has no bound.
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

    /// Sets what asks the delivery thread to call deliver(); an empty function takes it back. It is
    /// called once for each batch, with no lock held: on the publishing thread for the first text
    /// after deliver() began, else by deliver() at its end when texts are left; at once, here, when
    /// texts wait already. It must not throw.
    void setWake(std::function<void()> wake);

    /// Texts in one deliver(). So many take about a millisecond when a gateway hears them.
    static constexpr std::size_t largestBatch = 1000;

    /// Delivers what was queued when it began, but at most `largestBatch` texts, and gives how many
    /// they were. The rest, and what callbacks publish, waits for the next call: the delivery
    /// thread has other work, too. Called again from within a callback it goes on with the texts
    /// that are left, in order. The bus must outlive the call.
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
