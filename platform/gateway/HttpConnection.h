#pragma once

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <chrono>
#include <memory>
#include <optional>

#include "Connection.h"
#include "RequestRouter.h"
#include "Tcp.h"

namespace DOVA::gateway {

/// Reads requests, one after the other, and sends the router's answers. A page that may come in
/// goes on as SocketConnection.
class HttpConnection final : public Connection,
                             public std::enable_shared_from_this<HttpConnection> {
public:
    HttpConnection(Socket socket, std::shared_ptr<GatewayCore> core);
    ~HttpConnection() override;

    void readRequest();
    void finish() override;
    void cut() override;

private:
    using Parser = boost::beast::http::request_parser<boost::beast::http::empty_body>;

    void onRequest(boost::beast::error_code error);
    void answer(const RequestRouter::Request& request);
    void upgrade(RequestRouter::Admission admission, const RequestRouter::Request& request);
    void refuse(RequestRouter::Status status, const char* reason);
    void send(RequestRouter::Response response);
    void onSent(boost::beast::error_code error);
    void linger();
    void readRest();
    void limitTime(std::chrono::milliseconds time);

    Socket m_socket;
    Timer m_timer;
    boost::beast::flat_buffer m_buffer;
    std::optional<Parser> m_parser;
    RequestRouter::Response m_response;
    bool m_sending = false;
    bool m_finishing = false;
};

}  // namespace DOVA::gateway
