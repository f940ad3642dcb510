#pragma once

#include <boost/asio/basic_stream_socket.hpp>
#include <boost/asio/basic_waitable_timer.hpp>
#include <boost/asio/generic/stream_protocol.hpp>
#include <boost/asio/io_context.hpp>
#include <chrono>

namespace DOVA::load {

/// Everything runs on one loop, in one thread. Its own executor in place of a type-erased one: no
/// indirection and no allocation for each operation.
using Loop = boost::asio::io_context;
using Executor = Loop::executor_type;
using Clock = std::chrono::steady_clock;
using Timer = boost::asio::basic_waitable_timer<Clock, boost::asio::wait_traits<Clock>, Executor>;
/// TCP to the server, or one end of a pair to the relay in between.
using Socket = boost::asio::basic_stream_socket<boost::asio::generic::stream_protocol, Executor>;

}  // namespace DOVA::load
