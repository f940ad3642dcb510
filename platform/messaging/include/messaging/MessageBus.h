#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "messaging/Export.h"

namespace tdom::messaging {

/// The transport beneath every connector; one per process.
///
/// Channels are literal texts: no character of a name is a wildcard, and only subscribeTree()
/// reads structure ("/") into one. Texts are handed on byte by byte, whatever they hold.
/// Order is kept: two texts published one after the other arrive in that order at everyone who
/// hears both. Nothing is kept for later subscribers.
///
/// Every operation may be called from any thread and from within a callback. Callbacks run on the
/// bus's delivery thread only, one after the other. A callback may subscribe, publish, unsubscribe
/// itself or others and detach its own connector; the callable is kept alive until it returns.
/// A callback that throws harms nobody: the exception is caught, the first one of each
/// subscription is reported in one line on standard error, and delivery goes on.
class DOVA_MESSAGING_EXPORT MessageBus {
public:
    /// One participant; it never hears what it publishes itself.
    using ConnectorId = std::uint32_t;
    /// One subscription; 0 is never given out.
    using Handle = std::uint32_t;
    /// Receives the channel a text was published on, and the text.
    using Callback = std::function<void(const std::string& channel, const std::string& text)>;
    /// The position of a text in the order of delivery, from 1; 0 is before all.
    using Place = std::uint64_t;

    MessageBus() = default;
    MessageBus(const MessageBus&) = delete;
    MessageBus& operator=(const MessageBus&) = delete;
    virtual ~MessageBus() = default;

    /// Adds a participant. The name is for diagnostics; two participants may bear the same.
    virtual ConnectorId attach(const std::string& connectorName) = 0;

    /// Removes a participant and drops its subscriptions, as unsubscribe() does for each. What it
    /// published before is still delivered. An unknown id does nothing.
    virtual void detach(ConnectorId connector) = 0;

    /// Hears what others publish on exactly `channel` from now on; texts that were published
    /// before the call are not delivered to it.
    virtual Handle subscribe(ConnectorId connector, const std::string& channel,
                             Callback callback) = 0;

    /// As subscribe(), for `channel` itself and every channel that continues it with "/".
    virtual Handle subscribeTree(ConnectorId connector, const std::string& channel,
                                 Callback callback) = 0;

    /// Ends a subscription. Called on the delivery thread, no callback of it starts afterwards;
    /// called on another thread, one that has already begun may still be running. The callable is
    /// destroyed before the call returns, or when its running call ends. An unknown handle, 0
    /// included, does nothing.
    virtual void unsubscribe(Handle handle) = 0;

    /// Hands a text to every subscription of the channel that another connector holds. Returns at
    /// once; delivery comes later on the delivery thread.
    virtual void publish(ConnectorId connector, const std::string& channel, std::string text) = 0;

    /// As publish(), and answers the place of the text; of one that nobody hears, the place before
    /// it. With lastKnown() its publisher tells what answers it from what only comes later. A bus
    /// that keeps no places answers 0, as this one does.
    virtual Place publishPlaced(ConnectorId connector, const std::string& channel,
                                std::string text);

    /// To be asked in a callback: the place of the last text whose delivery had begun when the one
    /// that is being delivered was published. What stands behind it was not known yet.
    virtual Place lastKnown() const;

    /// Whether no text waits to be delivered; a bus that cannot tell answers true, as this one.
    virtual bool idle() const;

    /// The process's bus; installs an InProcessBus on first use.
    static std::shared_ptr<MessageBus> current();

    /// Chooses the process's bus. To be called before the first use: connectors that exist
    /// already stay with the bus they were made on. An empty pointer takes the choice back.
    static void install(std::shared_ptr<MessageBus> bus);
};

}  // namespace tdom::messaging
