#pragma once

#include <boost/asio/basic_socket_acceptor.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <functional>
#include <string>

#include "Loop.h"
#include "Metrics.h"

namespace DOVA::serve {

/// What monitoring asks for, on a port of the loopback interface that visitors do not reach:
/// /healthz, /readyz and /metrics over HTTP/1.1. An answer a connection.
class StatusPort {
public:
    struct Answers {
        std::function<bool()> isReady;
        std::function<std::string(Form)> metrics;
    };

    StatusPort(boost::asio::io_context& loop, Answers answers);

    /// Listens on 127.0.0.1; 0 takes any free port. Throws std::system_error.
    void start(std::uint16_t port);
    std::uint16_t port() const { return m_port; }

private:
    class Request;

    void accept();

    const Answers m_answers;
    boost::asio::basic_socket_acceptor<boost::asio::ip::tcp, link::Executor> m_acceptor;
    std::uint16_t m_port = 0;
};

}  // namespace DOVA::serve
