#include "StatusPort.h"

#include <boost/asio/ip/address.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <memory>
#include <system_error>
#include <utility>

namespace DOVA::serve {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::ip::tcp;

namespace {

using Socket = asio::basic_stream_socket<tcp, link::Executor>;
constexpr std::chrono::seconds s_longest{5};
constexpr std::uint32_t s_headerBytes = 8192;

}  // namespace

/// One connection, kept alive by its own operations.
class StatusPort::Request : public std::enable_shared_from_this<Request> {
public:
    Request(Socket socket, const Answers& answers)
        : m_socket(std::move(socket)), m_timer(m_socket.get_executor()), m_answers(answers) {
        m_parser.header_limit(s_headerBytes);
    }

    void read() {
        m_timer.expires_after(s_longest);
        m_timer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
            if (const auto self = weak.lock(); self && !error) {
                boost::system::error_code ignored;
                self->m_socket.close(ignored);
            }
        });
        http::async_read_header(
            m_socket, m_buffer, m_parser,
            [self = shared_from_this()](boost::system::error_code error, std::size_t) {
                if (!error) {
                    self->answer();
                }
            });
    }

private:
    void answer() {
        const auto path = m_parser.get().target();
        m_response.set(http::field::content_type, "text/plain; charset=utf-8");
        if (m_parser.get().method() != http::verb::get) {
            say(http::status::method_not_allowed, "only GET is allowed\n");
        } else if (path == "/healthz") {
            say(http::status::ok, "ok\n");
        } else if (path == "/readyz") {
            m_answers.isReady() ? say(http::status::ok, "ready\n")
                                : say(http::status::service_unavailable, "no room\n");
        } else if (path == "/metrics") {
            sayMetrics();
        } else {
            say(http::status::not_found, "no such path\n");
        }
        http::async_write(m_socket, m_response,
                          [self = shared_from_this()](boost::system::error_code, std::size_t) {
                              boost::system::error_code ignored;
                              self->m_socket.shutdown(Socket::shutdown_send, ignored);
                          });
    }

    void sayMetrics() {
        const std::string_view openMetrics = "application/openmetrics-text";
        const auto accepted = m_parser.get()[http::field::accept];
        const bool isOpen = accepted.find({openMetrics.data(), openMetrics.size()}) !=
                            boost::beast::string_view::npos;
        say(http::status::ok, m_answers.metrics(isOpen ? Form::OpenMetrics : Form::Text));
        m_response.set(http::field::content_type,
                       isOpen ? "application/openmetrics-text; version=1.0.0; charset=utf-8"
                              : "text/plain; version=0.0.4; charset=utf-8");
    }

    void say(http::status status, std::string text) {
        m_response.result(status);
        m_response.body() = std::move(text);
        m_response.keep_alive(false);
        m_response.prepare_payload();
    }

    Socket m_socket;
    link::Timer m_timer;
    const Answers& m_answers;
    boost::beast::flat_buffer m_buffer;
    http::request_parser<http::empty_body> m_parser;
    http::response<http::string_body> m_response;
};

StatusPort::StatusPort(asio::io_context& loop, Answers answers)
    : m_answers(std::move(answers)), m_acceptor(loop.get_executor()) {}

void StatusPort::start(std::uint16_t port) {
    try {
        m_acceptor.open(tcp::v4());
        m_acceptor.set_option(asio::socket_base::reuse_address(true));
        m_acceptor.bind({asio::ip::address_v4::loopback(), port});
        m_acceptor.listen();
    } catch (const boost::system::system_error& error) {
        throw std::system_error(error.code().value(), std::system_category(),
                                "cannot listen on 127.0.0.1:" + std::to_string(port));
    }
    m_port = m_acceptor.local_endpoint().port();
    accept();
}

void StatusPort::accept() {
    m_acceptor.async_accept([this](boost::system::error_code error, Socket socket) {
        if (error == asio::error::operation_aborted) {
            return;
        }
        if (!error) {
            std::make_shared<Request>(std::move(socket), m_answers)->read();
        }
        accept();
    });
}

}  // namespace DOVA::serve
