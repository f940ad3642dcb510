#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Address.h"
#include "Line.h"

namespace DOVA::load {

/// One WebSocket of a page, from its opening request to its end.
class Connection {
public:
    struct Listener {
        Listener() = default;
        Listener(const Listener&) = delete;
        Listener& operator=(const Listener&) = delete;
        virtual ~Listener() = default;
        virtual void message(std::string_view text) = 0;
        /// The close code, or 1006 when it ended without one. Nothing comes after it.
        virtual void closed(std::uint16_t code) = 0;
        /// The server answered with an HTTP status in place of the upgrade. Nothing comes after it.
        virtual void refused(unsigned status) = 0;
    };

    /// Begins to open it. The listener must live until the connection has ended or was dropped.
    Connection(Line& line, const Address& address, const SocketRequest& request,
               Listener& listener);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    /// Drops it: the listener hears nothing more.
    ~Connection();

    /// Sends a text frame, after those before it.
    void send(std::string frame);
    /// Closes it as a browser does whose page is closed; the listener hears nothing more, and
    /// nothing more can be sent.
    void leave();

private:
    class Transport;
    std::shared_ptr<Transport> m_transport;
};

}  // namespace DOVA::load
