#include "InputWatch.h"

#include <sys/epoll.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "MainLoop.h"

namespace DOVA::runtime {

namespace {

[[noreturn]] void refuse(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

InputWatch::InputWatch(boost::asio::io_context& context, int descriptor) : m_queue(context) {
    const int queue = epoll_create1(EPOLL_CLOEXEC);
    if (queue < 0) {
        refuse("cannot wait for input");
    }
    m_queue.assign(queue);
    epoll_event event{};
    event.events = EPOLLIN;
    if (epoll_ctl(queue, EPOLL_CTL_ADD, descriptor, &event) != 0) {
        refuse("cannot wait for input");
    }
}

void InputWatch::start(std::function<void()> callable) {
    m_callable = std::move(callable);
    wait();
}

void InputWatch::wait() {
    m_queue.async_wait(boost::asio::posix::stream_descriptor::wait_read,
                       [self = shared_from_this()](boost::system::error_code error) {
                           if (error || !self->m_callable) {
                               return;
                           }
                           const auto callable = self->m_callable;  // it may end the watch
                           MainLoop::call(callable);
                           self->wait();
                       });
}

void InputWatch::end() {
    m_callable = nullptr;
    boost::system::error_code ignored;
    m_queue.close(ignored);
}

}  // namespace DOVA::runtime
