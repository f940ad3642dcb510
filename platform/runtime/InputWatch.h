#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <functional>
#include <memory>

namespace DOVA::runtime {

/// Calls the program whenever a descriptor can be read. The descriptor itself is left as it is:
/// what the loop waits on is a queue of its own, since waiting on a terminal directly would make it
/// non-blocking for every process that shares it.
class InputWatch : public std::enable_shared_from_this<InputWatch> {
public:
    /// Throws std::system_error for a descriptor that cannot be waited for.
    InputWatch(boost::asio::io_context& context, int descriptor);
    InputWatch(const InputWatch&) = delete;
    InputWatch& operator=(const InputWatch&) = delete;

    void start(std::function<void()> callable);
    /// No call begins after this; may be called by the callable.
    void end();

private:
    void wait();

    boost::asio::posix::stream_descriptor m_queue;
    std::function<void()> m_callable;
};

}  // namespace DOVA::runtime
