#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace DOVA::gateway {

namespace websocket = boost::beast::websocket;

/// A browser's end of the WebSocket, driven step by step by a test on the gateway's own loop.
class TestPage {
public:
    /// Runs the loop until a condition holds.
    using Await = std::function<void(const std::function<bool()>&)>;

    /// Opens the socket as a page of ours does. Throws when it is refused.
    TestPage(boost::asio::io_context& loop, Await await, std::uint16_t port,
             const std::string& query)
        : m_await(std::move(await)), m_stream(loop) {
        const std::string host = "127.0.0.1:" + std::to_string(port);
        auto& socket = m_stream.next_layer();
        socket.open(boost::asio::ip::tcp::v4());
        // The network between holds little, so that a page that does not read is felt soon.
        socket.set_option(boost::asio::socket_base::receive_buffer_size(64 * 1024));
        socket.connect({boost::asio::ip::make_address("127.0.0.1"), port});
        socket.set_option(boost::asio::ip::tcp::no_delay(true));  // as browsers do
        m_stream.set_option(websocket::stream_base::decorator([&](websocket::request_type& asked) {
            asked.set("Origin", "http://" + host);
            asked.set("Sec-WebSocket-Protocol", subProtocol);
        }));
        m_stream.control_callback(
            [this](auto type, auto) { pings += type == websocket::frame_type::ping ? 1 : 0; });
        m_stream.read_message_max(0);
        websocket::response_type response;
        run([&](auto done) { m_stream.async_handshake(response, host, "/socket?" + query, done); });
        subProtocol = std::string(response["Sec-WebSocket-Protocol"]);
    }

    void send(const std::string& frame) {
        run([&](auto done) { m_stream.async_write(boost::asio::buffer(frame), done); });
    }
    void sendBinary(const std::string& frame) {
        m_stream.binary(true);
        send(frame);
    }
    /// Bytes as they are, beneath the WebSocket.
    void sendRaw(const std::string& bytes) {
        boost::asio::write(m_stream.next_layer(), boost::asio::buffer(bytes));
    }

    /// The next text frame. Throws when the connection ends instead.
    std::string read() {
        m_buffer.clear();
        run([&](auto done) { m_stream.async_read(m_buffer, done); });
        return m_stream.got_text() ? boost::beast::buffers_to_string(m_buffer.data()) : "no text";
    }

    /// Reads on until the connection ends: "code reason", or "0 " when it was merely cut.
    std::string end() {
        try {
            while (true) {
                read();
            }
        } catch (const boost::system::system_error&) {
            return std::to_string(m_stream.reason().code) + " " + m_stream.reason().reason.c_str();
        }
    }

    /// Keeps reading, and so answering pings, without waiting for anything.
    void readInBackground() {
        m_buffer.clear();
        m_stream.async_read(m_buffer, [this, alive = std::weak_ptr<int>(m_alive)](
                                          boost::system::error_code error, std::size_t) {
            if (!alive.expired() && !(isOver = error.failed())) {
                readInBackground();
            }
        });
    }

    /// The page goes away, as browsers tell it when a tab is closed or loaded again.
    void leave() {
        run([&](auto done) { m_stream.async_close(websocket::close_code::going_away, done); });
    }

    /// The network goes away.
    void cut() { m_stream.next_layer().close(); }

    int pings = 0;
    bool isOver = false;
    std::string subProtocol = "dova.gateway.1";

private:
    /// Begins an operation, runs the loop until it is done, and throws when it failed.
    template <class Begin>
    void run(Begin begin) {
        const auto result = std::make_shared<std::optional<boost::system::error_code>>();
        begin([result](boost::system::error_code error, std::size_t = 0) { *result = error; });
        m_await([&] { return result->has_value(); });
        if (**result) {
            throw boost::system::system_error(**result);
        }
    }

    const Await m_await;
    websocket::stream<boost::asio::ip::tcp::socket> m_stream;
    boost::beast::flat_buffer m_buffer;
    const std::shared_ptr<int> m_alive = std::make_shared<int>();
};

}  // namespace DOVA::gateway
