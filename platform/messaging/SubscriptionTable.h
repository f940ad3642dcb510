#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "messaging/MessageBus.h"

namespace tdom::messaging {

/// One subscription. Messages that are queued keep it alive, but once it has ended it is only an
/// empty shell: the callable is taken out then, since its code may be unloaded soon after.
struct Subscription {
    MessageBus::Handle handle = 0;
    MessageBus::ConnectorId connector = 0;
    std::string channel;
    bool tree = false;
    MessageBus::Callback callback;
    bool active = true;
    bool reported = false;
    int running = 0;
};

/// A channel and who hears it, in the order of subscribing; never changed once made.
struct Route {
    std::string channel;
    std::vector<std::shared_ptr<Subscription>> subscriptions;

    /// Whether somebody other than `connector` hears the channel.
    bool reachesOtherThan(MessageBus::ConnectorId connector) const;
};

/// Who subscribed to what, and the remembered answers to "who hears this channel". Not
/// thread-safe; callables that it gives back are for the caller to destroy without its lock.
class SubscriptionTable {
public:
    using Handle = MessageBus::Handle;
    using ConnectorId = MessageBus::ConnectorId;
    using Callback = MessageBus::Callback;

    Handle add(ConnectorId connector, const std::string& channel, bool tree, Callback callback);
    /// Ends a subscription and gives its callable back, unless it is running or unknown.
    Callback remove(Handle handle);
    /// Ends every subscription of the connector.
    std::vector<Callback> removeAll(ConnectorId connector);
    /// Who hears the channel now; one hash look-up when it was asked before. The reference is
    /// valid until the next call.
    const std::shared_ptr<const Route>& route(const std::string& channel);

private:
    using Subscriptions = std::vector<std::shared_ptr<Subscription>>;
    using Index = std::unordered_map<std::string, Subscriptions>;

    Index& index(bool tree) { return tree ? m_trees : m_channels; }
    Handle freeHandle();
    void forgetRoutes(const Subscription& changed);
    std::shared_ptr<const Route> resolve(const std::string& channel) const;
    static void collect(const Index& index, const std::string& channel, Subscriptions& into);

    std::unordered_map<Handle, std::shared_ptr<Subscription>> m_handles;
    Index m_channels;
    Index m_trees;
    std::unordered_map<std::string, std::shared_ptr<const Route>> m_routes;
    Handle m_lastHandle = 0;
};

}  // namespace tdom::messaging
