#pragma once

#include <boost/asio/steady_timer.hpp>
#include <functional>

#include "runtime/Timer.h"

namespace DOVA::runtime {

/// A call that is due later; lives in the loop's wait for it.
struct Timer::Call {
    boost::asio::steady_timer wait;
    std::function<void()> callable;
};

}  // namespace DOVA::runtime
