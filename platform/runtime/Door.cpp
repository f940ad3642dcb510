#include "Door.h"

#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>

#include "LinkServer.h"
#include "TokenFile.h"
#include "gateway/Gateway.h"
#include "runtime/StartError.h"

namespace DOVA::runtime {

namespace asio = boost::asio;

namespace {

gateway::GatewayOptions gatewayOptions(const HostOptions& options) {
    gateway::GatewayOptions result;
    result.bindAddress = options.bindAddress;
    result.allowNonLoopback = options.allowRemote;
    result.port = options.port;
    result.extraHosts = options.hosts;
    result.extraOrigins = options.origins;
    result.publicUrl = options.publicUrl;
    result.pageFolder = options.pageFolder;
    result.theme = options.theme;
    result.applicationRoot = options.applicationRoot;
    result.sessions.graceTime = options.graceTime;
    return result;
}

class GatewayDoor final : public Door {
public:
    GatewayDoor(asio::io_context& loop, const HostOptions& options) {
        gateway::GatewayOptions wanted = gatewayOptions(options);
        const TokenFile tokenFile(options.tokenFile);
        if (!options.tokenFile.empty()) {
            wanted.token = tokenFile.read();
        }
        const bool isNewToken = wanted.token.empty();
        m_gateway.emplace(loop, std::move(wanted));
        m_gateway->start();
        if (isNewToken && !options.tokenFile.empty()) {
            tokenFile.write(m_gateway->token());
        }
    }

    std::string address() const override { return m_gateway->address(); }
    void close(std::function<void()> whenClosed) override {
        m_gateway->stop(std::move(whenClosed));
    }

private:
    std::optional<gateway::Gateway> m_gateway;
};

class LinkDoor final : public Door {
public:
    LinkDoor(asio::io_context& loop, const HostOptions& options, std::string socket,
             std::string key, std::function<void()> whenAbandoned) {
        session::SessionOptions sessions;
        sessions.graceTime = options.graceTime;
        const link::message::Properties hello{
            {link::hello::s_protocol, link::hello::s_version},
            {link::hello::s_key, std::move(key)},
            {link::hello::s_applicationRoot, options.applicationRoot.string()},
            {link::hello::s_theme, options.theme.string()}};
        m_links = std::make_shared<link::LinkServer>(loop, sessions, std::move(socket), hello);
        m_links->start(std::move(whenAbandoned));
    }

    std::string address() const override { return {}; }
    void close(std::function<void()> whenClosed) override { m_links->stop(std::move(whenClosed)); }

private:
    std::shared_ptr<link::LinkServer> m_links;
};

/// The value of an environment variable, which programs that this one starts do not get.
std::string taken(const char* name) {
    const char* const value = std::getenv(name);
    const std::string result = value ? value : "";
    unsetenv(name);
    return result;
}

}  // namespace

std::unique_ptr<Door> Door::open(asio::io_context& loop, const HostOptions& options,
                                 std::function<void()> whenAbandoned) {
    std::string socket = taken("DOVA_LINK"), key = taken("DOVA_LINK_KEY");
    try {
        if (socket.empty()) {
            return std::make_unique<GatewayDoor>(loop, options);
        }
        return std::make_unique<LinkDoor>(loop, options, std::move(socket), std::move(key),
                                          std::move(whenAbandoned));
    } catch (const std::system_error& error) {
        throw StartError(error.what());
    }
}

}  // namespace DOVA::runtime
