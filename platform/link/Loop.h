#pragma once

#include <boost/asio/basic_waitable_timer.hpp>
#include <boost/asio/io_context.hpp>
#include <chrono>

namespace DOVA::link {

/// The loop's own executor in place of a type-erased one: no indirection and no allocation for
/// each operation.
using Executor = boost::asio::io_context::executor_type;
using Clock = std::chrono::steady_clock;
using Timer = boost::asio::basic_waitable_timer<Clock, boost::asio::wait_traits<Clock>, Executor>;

}  // namespace DOVA::link
