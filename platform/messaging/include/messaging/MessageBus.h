#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "messaging/Export.h"

namespace tdom::messaging {

/// The transport beneath every connector; one per process.
///
/// Channels are literal texts: no character of a name is a wildcard, and only subscribeTree() reads
/// structure ("/") into one. Texts are passed on byte by byte, whatever they hold. Two texts
/// published one after the other arrive in that order at everyone who hears both. Nothing is kept
/// for later subscribers.
///
/// Every operation may be called from any thread and from within a callback. Callbacks run on the
/// bus's delivery thread only, one after the other. A callback may subscribe, publish, end its own
/// and other subscriptions, and detach its connector; its callable lives until it returns. A
/// callback that throws stops nothing: the exception is caught, the first one of each subscription
/// is one line in the log, and delivery goes on.
class DOVA_MESSAGING_EXPORT MessageBus {
public:
    /// One connector; it never hears what it publishes itself.
    using ConnectorId = std::uint32_t;
    /// One subscription; 0 is never given out.
    using Handle = std::uint32_t;
    /// Receives the channel on which a text was published, and the text. Not empty.
    using Callback = std::function<void(const std::string& channel, const std::string& text)>;
    /// The position of a text in the order of delivery, from 1; 0 is before all.
    using Place = std::uint64_t;

    MessageBus() = default;
    MessageBus(const MessageBus&) = delete;
    MessageBus& operator=(const MessageBus&) = delete;
    virtual ~MessageBus() = default;

    /// Adds a connector. The name is for diagnostics; two connectors may have the same.
    virtual ConnectorId attach(const std::string& connectorName) = 0;

    /// Removes a connector and ends its subscriptions, as unsubscribe() does for each. What it
    /// published before is still delivered. An unknown id does nothing.
    virtual void detach(ConnectorId connector) = 0;

    /// Hears what others publish on exactly `channel` from now on; texts that were published before
    /// the call are not delivered to it. REQUIRES: `connector` is attached.
    virtual Handle subscribe(ConnectorId connector, const std::string& channel,
                             Callback callback) = 0;

    /// As subscribe(), for `channel` itself and every channel that continues it with "/".
    virtual Handle subscribeTree(ConnectorId connector, const std::string& channel,
                                 Callback callback) = 0;

    /// Ends a subscription: its callback is not called any more. Away from the delivery thread, a
    /// call that began before may still be running afterwards. The callable is destroyed before
    /// this returns, or when its running call ends. An unknown handle, 0 included, does nothing.
    virtual void unsubscribe(Handle handle) = 0;

    /// Sends a text to every subscription of the channel that another connector has. Returns at
    /// once; delivery comes later, on the delivery thread.
    virtual void publish(ConnectorId connector, const std::string& channel, std::string text) = 0;

    /// As publish(), and gives the place of the text; for a text that nobody hears, the place of
    /// the last text before it. The publisher compares it with lastKnown() of what it hears later:
    /// where that is smaller, the other side did not know this text yet. A bus without places gives
    /// 0, as the base does.
    virtual Place publishPlaced(ConnectorId connector, const std::string& channel,
                                std::string text);

    /// For a callback: the place of the last text whose delivery had begun when the present text
    /// was published. Its publisher knew no later one. The base gives 0.
    virtual Place lastKnown() const;

    /// Whether no text waits to be delivered; a bus that cannot tell gives true, as the base does.
    virtual bool idle() const;

    /// The process's bus; installs an InProcessBus on first use.
    static std::shared_ptr<MessageBus> current();

    /// Chooses the process's bus. Call it before the first use: connectors that exist already stay
    /// with the bus they were made on. An empty pointer takes the choice back.
    static void install(std::shared_ptr<MessageBus> bus);
};

}  // namespace tdom::messaging
