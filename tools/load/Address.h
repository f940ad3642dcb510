#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <string>
#include <string_view>

namespace DOVA::load {

/// Where one program is found: what it prints, taken apart.
struct Address {
    /// As in a Host header, with the port unless it is 80.
    std::string host;
    /// Where the name leads.
    boost::asio::ip::tcp::endpoint endpoint;
    /// Below which the page asks for everything; without a slash at its end, empty for the root.
    std::string base;
    std::string token;

    std::string origin() const { return "http://" + host; }

    /// Reads "http://HOST[:PORT][/BASE/]#TOKEN" and looks the name up. Throws std::invalid_argument
    /// with one sentence for a text that is no such address, for https, and for an unknown name.
    static Address parse(std::string_view text);
};

/// What the opening request of a page's WebSocket says beside Host and Origin.
struct SocketRequest {
    std::string target;
    std::string subProtocols;
};

/// One connection of a page, as the server is to see it.
struct Attempt {
    std::string client;
    std::uint64_t number = 1;
    /// There is a session to resume, and so many records of it have come.
    bool isResume = false;
    std::uint64_t received = 0;
};

/// The only place that knows how the token travels.
SocketRequest socketRequest(const Address& address, const Attempt& attempt);

}  // namespace DOVA::load
