#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "gateway/Export.h"
#include "gateway/GatewayOptions.h"

namespace boost::asio {
class io_context;
}

namespace DOVA::gateway {

class Entrance;
class GatewayCore;

/// Serves the built page and icon files over HTTP (RFC 9110, 9112), and joins each page's WebSocket
/// (RFC 6455) to the message bus, as connector "dova_gateway" of
/// tdom::messaging::MessageBus::current(). It knows channels and texts, never widgets.
///
/// One thread runs the io_context; it must be the bus's delivery thread. Call every operation
/// there, or before the loop runs. The io_context must outlive the gateway. The gateway may be
/// destroyed from within any call of the loop.
///
/// Nothing that comes over the network throws or stops the loop. Bad requests and texts are refused
/// with an HTTP status, or a WebSocket close code, and a reason.
class DOVA_GATEWAY_EXPORT Gateway {
public:
    /// Only stores the options; nothing is opened yet.
    Gateway(boost::asio::io_context& loop, GatewayOptions options);
    /// The same for many programs in other processes: `entrance`, which must outlive this, says who
    /// may come in, and where. GatewayOptions::token and ::sessions are not used then.
    Gateway(boost::asio::io_context& loop, GatewayOptions options, Entrance& entrance);
    Gateway(const Gateway&) = delete;
    Gateway& operator=(const Gateway&) = delete;
    /// Cuts every connection, without a close code. Drops the callables that wait for the end of
    /// stop().
    ~Gateway();

    /// Attaches to the bus, listens, and serves from the next turn of the loop on. Call it once.
    /// Throws std::system_error with a text for the user when an option is bad, the page is missing
    /// ("the page folder ...") or the port is not free ("cannot listen on 127.0.0.1:8080: Address
    /// already in use"); nothing is left open then.
    void start();

    /// The port it listens on; 0 before start().
    std::uint16_t port() const;

    /// The token that a page must bring; empty before start() unless an option set it.
    const std::string& token() const;

    /// What to open in a browser: "http://127.0.0.1:8080/#TOKEN". When it listens on every
    /// interface, the address is the loopback one; with GatewayOptions::publicUrl it is that. The
    /// token is a secret: who has it drives the program. Without a token for a gateway of many
    /// programs. Empty before start().
    std::string address() const;

    /// How often pages were kept out, by the reason that they were told.
    std::map<std::string, std::uint64_t> refusals() const;

    /// Shuts down: takes no new connection, sends what waits for the pages, closes each with code
    /// 1001 "program ended", and after GatewayLimits::stopTime cuts what is left. Then the loop
    /// calls `whenStopped`, also when it was stopped before or never started. Ends the sessions
    /// without a "clientDestroyed": the program itself goes.
    void stop(std::function<void()> whenStopped = {});

private:
    std::shared_ptr<GatewayCore> m_core;
};

}  // namespace DOVA::gateway
