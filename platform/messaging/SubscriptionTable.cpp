#include "SubscriptionTable.h"

#include <algorithm>
#include <utility>

namespace tdom::messaging {

namespace {

/// Whoever publishes on ever new channels must not make the remembered routes grow without end.
constexpr std::size_t s_maxRoutes = 4096;

}  // namespace

bool Route::reachesOtherThan(MessageBus::ConnectorId connector) const {
    return std::any_of(subscriptions.begin(), subscriptions.end(),
                       [connector](const auto& one) { return one->connector != connector; });
}

SubscriptionTable::Handle SubscriptionTable::add(ConnectorId connector, const std::string& channel,
                                                 bool tree, Callback callback) {
    auto subscription = std::make_shared<Subscription>();
    subscription->handle = freeHandle();
    subscription->connector = connector;
    subscription->channel = channel;
    subscription->tree = tree;
    subscription->callback = std::move(callback);
    index(tree)[channel].push_back(subscription);
    forgetRoutes(*subscription);
    m_handles.emplace(subscription->handle, subscription);
    return subscription->handle;
}

SubscriptionTable::Callback SubscriptionTable::remove(Handle handle) {
    const auto found = m_handles.find(handle);
    if (found == m_handles.end()) {
        return {};
    }
    const std::shared_ptr<Subscription> subscription = std::move(found->second);
    m_handles.erase(found);
    forgetRoutes(*subscription);
    const auto list = index(subscription->tree).find(subscription->channel);
    auto& all = list->second;
    all.erase(std::find(all.begin(), all.end(), subscription));
    if (all.empty()) {
        index(subscription->tree).erase(list);
    }
    subscription->active = false;
    return subscription->running > 0 ? Callback() : std::exchange(subscription->callback, {});
}

std::vector<SubscriptionTable::Callback> SubscriptionTable::removeAll(ConnectorId connector) {
    std::vector<Handle> handles;
    for (const auto& [handle, subscription] : m_handles) {
        if (subscription->connector == connector) {
            handles.push_back(handle);
        }
    }
    std::vector<Callback> callbacks;
    callbacks.reserve(handles.size());
    for (const Handle handle : handles) {
        callbacks.push_back(remove(handle));
    }
    return callbacks;
}

const std::shared_ptr<const Route>& SubscriptionTable::route(const std::string& channel) {
    const auto found = m_routes.find(channel);
    if (found != m_routes.end()) {
        return found->second;
    }
    if (m_routes.size() >= s_maxRoutes) {
        m_routes.clear();
    }
    return m_routes.emplace(channel, resolve(channel)).first->second;
}

SubscriptionTable::Handle SubscriptionTable::freeHandle() {
    do {
        ++m_lastHandle;
    } while (m_lastHandle == 0 || m_handles.count(m_lastHandle) > 0);
    return m_lastHandle;
}

void SubscriptionTable::forgetRoutes(const Subscription& changed) {
    if (changed.tree) {
        m_routes.clear();
    } else {
        m_routes.erase(changed.channel);
    }
}

std::shared_ptr<const Route> SubscriptionTable::resolve(const std::string& channel) const {
    auto route = std::make_shared<Route>();
    route->channel = channel;
    collect(m_channels, channel, route->subscriptions);
    if (!m_trees.empty()) {
        collect(m_trees, channel, route->subscriptions);
        for (std::size_t end = channel.find('/'); end != std::string::npos;
             end = channel.find('/', end + 1)) {
            collect(m_trees, channel.substr(0, end), route->subscriptions);
        }
    }
    std::sort(route->subscriptions.begin(), route->subscriptions.end(),
              [](const auto& a, const auto& b) { return a->handle < b->handle; });
    return route;
}

void SubscriptionTable::collect(const Index& index, const std::string& channel,
                                Subscriptions& into) {
    const auto found = index.find(channel);
    if (found != index.end()) {
        into.insert(into.end(), found->second.begin(), found->second.end());
    }
}

}  // namespace tdom::messaging
