#pragma once

#include <boost/asio/basic_socket_acceptor.hpp>
#include <boost/asio/basic_stream_socket.hpp>
#include <boost/asio/basic_waitable_timer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <chrono>

namespace DOVA::gateway {

/// The loop's own executor in place of a type-erased one: no indirection and no allocation for
/// each operation.
using Executor = boost::asio::io_context::executor_type;
using Socket = boost::asio::basic_stream_socket<boost::asio::ip::tcp, Executor>;
using Acceptor = boost::asio::basic_socket_acceptor<boost::asio::ip::tcp, Executor>;
using Clock = std::chrono::steady_clock;
using Timer = boost::asio::basic_waitable_timer<Clock, boost::asio::wait_traits<Clock>, Executor>;

}  // namespace DOVA::gateway
