#include "HttpConnection.h"

#include <boost/asio/buffer.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>
#include <utility>

#include "GatewayCore.h"
#include "SocketConnection.h"

namespace DOVA::gateway {

namespace beast = boost::beast;
namespace http = beast::http;

namespace {

/// How long a refused browser gets to fetch the reason before the connection is gone.
constexpr std::chrono::milliseconds s_lingerTime{2000};

bool isTooLarge(const beast::error_code& error) {
    return error == http::error::header_limit || error == http::error::buffer_overflow;
}

bool isMalformed(const beast::error_code& error) {
    return error.category() == http::make_error_code(http::error::bad_method).category() &&
           error != http::error::end_of_stream && error != http::error::partial_message;
}

}  // namespace

HttpConnection::HttpConnection(Socket socket, std::shared_ptr<GatewayCore> core)
    : Connection(std::move(core)), m_socket(std::move(socket)), m_timer(m_socket.get_executor()) {
    this->core().strangerComes(*this);
}

HttpConnection::~HttpConnection() {
    core().strangerGoes(*this);
}

void HttpConnection::readRequest() {
    m_parser.emplace();
    m_parser->header_limit(core().options().limits.httpHeaderBytes);
    limitTime(core().options().limits.httpHeaderTime);
    http::async_read_header(m_socket, m_buffer, *m_parser,
                            [self = shared_from_this()](beast::error_code error, std::size_t) {
                                self->onRequest(error);
                            });
}

void HttpConnection::onRequest(beast::error_code error) {
    if (isTooLarge(error)) {
        return refuse(http::status::request_header_fields_too_large, "the header is too large");
    }
    if (isMalformed(error)) {
        return refuse(http::status::bad_request, "malformed request");
    }
    if (error) {
        return cut();
    }
    if (m_parser->get().count(http::field::transfer_encoding) > 0 || !m_parser->is_done()) {
        return refuse(http::status::bad_request, "no request body is accepted");
    }
    answer(m_parser->get());
}

void HttpConnection::answer(const RequestRouter::Request& request) {
    RequestRouter::Answer answer = core().router().answer(request);
    auto* const response = std::get_if<RequestRouter::Response>(&answer);
    const bool mayComeIn = !response || response->result() == http::status::upgrade_required;
    if (mayComeIn && core().isFull()) {
        refuse(http::status::service_unavailable, "too many connections");
    } else if (response) {
        send(std::move(*response));
    } else {
        upgrade(std::move(std::get<RequestRouter::Admission>(answer)), request);
    }
}

void HttpConnection::upgrade(RequestRouter::Admission admission,
                             const RequestRouter::Request& request) {
    if (m_buffer.size() > 0) {
        return refuse(http::status::bad_request, "data before the end of the handshake");
    }
    m_timer.cancel();
    core().strangerGoes(*this);
    std::make_shared<SocketConnection>(std::move(m_socket), sharedCore(), std::move(admission))
        ->accept(request);
}

void HttpConnection::refuse(RequestRouter::Status status, const char* reason) {
    send(RequestRouter::refusal(status, reason));
}

void HttpConnection::send(RequestRouter::Response response) {
    m_response = std::move(response);
    core().refusals().note(m_response, m_parser->get(), Clock::now());
    m_sending = true;
    limitTime(core().options().limits.writeTime);
    http::async_write(
        m_socket, m_response,
        [self = shared_from_this()](beast::error_code error, std::size_t) { self->onSent(error); });
}

void HttpConnection::onSent(beast::error_code error) {
    m_sending = false;
    if (error) {
        return cut();
    }
    if (m_response.keep_alive() && !m_finishing) {
        return readRequest();
    }
    linger();
}

/// Closing while data of the browser is unread would reset the connection, and the answer on its
/// way with it.
void HttpConnection::linger() {
    beast::error_code ignored;
    m_socket.shutdown(Socket::shutdown_send, ignored);
    limitTime(s_lingerTime);
    readRest();
}

void HttpConnection::readRest() {
    m_buffer.clear();
    m_socket.async_read_some(m_buffer.prepare(4096),
                             [self = shared_from_this()](beast::error_code error, std::size_t) {
                                 if (error) {
                                     self->cut();
                                 } else {
                                     self->readRest();
                                 }
                             });
}

void HttpConnection::finish() {
    m_finishing = true;
    if (!m_sending) {
        cut();
    }
}

void HttpConnection::cut() {
    beast::error_code ignored;
    m_timer.cancel();
    m_socket.close(ignored);
}

void HttpConnection::limitTime(std::chrono::milliseconds time) {
    m_timer.expires_after(time);
    m_timer.async_wait([weak = weak_from_this()](beast::error_code error) {
        const auto self = weak.lock();
        if (self && !error && self->m_timer.expiry() <= Clock::now()) {
            self->cut();
        }
    });
}

}  // namespace DOVA::gateway
