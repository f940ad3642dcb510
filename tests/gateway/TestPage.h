#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace DOVA::gateway {

/// A browser's end of the WebSocket, driven step by step by a test on the gateway's own loop.
class TestPage {
public:
    using Stream = boost::beast::websocket::stream<boost::asio::ip::tcp::socket>;
    /// Runs the loop until a condition holds.
    using Await = std::function<void(const std::function<bool()>&)>;
    using Adjust = std::function<void(boost::beast::websocket::request_type&)>;

    TestPage(boost::asio::io_context& loop, Await await, std::uint16_t port);

    /// Opens the socket as a page of ours does; `adjust` may spoil the request. Returns the HTTP
    /// status, 101 when it worked.
    unsigned open(const std::string& query, const Adjust& adjust = {});

    void send(const std::string& frame) { write(frame, false); }
    void sendBinary(const std::string& frame) { write(frame, true); }
    /// Bytes as they are, beneath the WebSocket.
    void sendRaw(const std::string& bytes);

    /// The next text frame. Throws when the connection ends instead.
    std::string read();

    /// Reads on until the connection ends: the close code, or 0 when it was merely cut.
    unsigned closeCode();

    /// Keeps reading, and so answering pings, without waiting for anything.
    void readInBackground();
    bool isOver() const { return m_over; }
    int pings() const { return m_pings; }

    /// The network goes away.
    void cut();

    std::string subProtocol() const { return m_subProtocol; }

private:
    using Done = std::function<void(boost::beast::error_code)>;

    boost::beast::error_code wait(const std::function<void(Done)>& begin);
    void write(const std::string& frame, bool binary);

    Await m_await;
    const std::uint16_t m_port;
    Stream m_stream;
    boost::beast::flat_buffer m_buffer;
    std::string m_subProtocol;
    int m_pings = 0;
    bool m_over = false;
    const std::shared_ptr<int> m_alive = std::make_shared<int>();
};

}  // namespace DOVA::gateway
