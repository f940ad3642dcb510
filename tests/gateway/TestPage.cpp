#include "TestPage.h"

#include <boost/asio/connect.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <utility>

namespace DOVA::gateway {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace websocket = beast::websocket;

TestPage::TestPage(asio::io_context& loop, Await await, std::uint16_t port)
    : m_await(std::move(await)), m_port(port), m_stream(loop) {
    m_stream.control_callback([this](websocket::frame_type type, beast::string_view) {
        m_pings += type == websocket::frame_type::ping ? 1 : 0;
    });
    m_stream.read_message_max(0);
}

beast::error_code TestPage::wait(const std::function<void(Done)>& begin) {
    bool done = false;
    beast::error_code result;
    begin([&](beast::error_code error) {
        result = error;
        done = true;
    });
    m_await([&] { return done; });
    return result;
}

unsigned TestPage::open(const std::string& query, const Adjust& adjust) {
    const std::string host = "127.0.0.1:" + std::to_string(m_port);
    m_stream.next_layer().open(asio::ip::tcp::v4());
    // The network between holds little, so that a page that does not read is felt soon.
    m_stream.next_layer().set_option(asio::socket_base::receive_buffer_size(64 * 1024));
    m_stream.next_layer().connect({asio::ip::make_address("127.0.0.1"), m_port});
    m_stream.next_layer().set_option(asio::ip::tcp::no_delay(true));  // as browsers do
    m_stream.set_option(websocket::stream_base::decorator([&](websocket::request_type& request) {
        request.set(beast::http::field::origin, "http://" + host);
        request.set(beast::http::field::sec_websocket_protocol, "dova.gateway.1");
        if (adjust)
            adjust(request);
    }));
    websocket::response_type response;
    wait([&](auto done) {
        m_stream.async_handshake(response, host, "/socket?" + query, std::move(done));
    });
    m_subProtocol = std::string(response[beast::http::field::sec_websocket_protocol]);
    return response.result_int();
}

void TestPage::write(const std::string& frame, bool binary) {
    m_stream.binary(binary);
    const auto error = wait([&](auto done) {
        m_stream.async_write(asio::buffer(frame),
                             [done](beast::error_code result, std::size_t) { done(result); });
    });
    if (error)
        throw beast::system_error(error);
}

void TestPage::sendRaw(const std::string& bytes) {
    asio::write(m_stream.next_layer(), asio::buffer(bytes));
}

std::string TestPage::read() {
    m_buffer.clear();
    const auto error = wait([&](auto done) {
        m_stream.async_read(m_buffer,
                            [done](beast::error_code result, std::size_t) { done(result); });
    });
    if (error)
        throw beast::system_error(error);
    return beast::buffers_to_string(m_buffer.data());
}

unsigned TestPage::closeCode() {
    try {
        while (true)
            read();
    } catch (const beast::system_error&) {
        return m_stream.reason().code;
    }
}

void TestPage::readInBackground() {
    m_buffer.clear();
    m_stream.async_read(m_buffer, [this, alive = std::weak_ptr<int>(m_alive)](
                                      beast::error_code error, std::size_t) {
        if (alive.expired())
            return;
        m_over = m_over || error;
        if (!error)
            readInBackground();
    });
}

void TestPage::cut() {
    beast::error_code ignored;
    m_stream.next_layer().close(ignored);
}

}  // namespace DOVA::gateway
