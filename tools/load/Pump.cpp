#include "Pump.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/error.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace DOVA::load {

namespace asio = boost::asio;

namespace {

/// More than this the network would not take either while nobody reads.
constexpr std::size_t s_mostWaiting = 4 * 1024 * 1024;

/// One for all pumps: what it holds is passed on before the next one reads.
std::array<char, 65536> s_buffer;

}  // namespace

Pump::Pump(Owner& owner, Socket& from, Socket& to)
    : m_owner(owner), m_from(from), m_to(to), m_timer(from.get_executor()) {}

void Pump::start() {
    boost::system::error_code ignored;
    m_from.non_blocking(true, ignored);
    read();
}

void Pump::holdFor(Clock::duration time) {
    m_isHeld = true;
    m_timer.expires_after(time);
    m_timer.async_wait([this, alive = m_owner.keepAlive()](ErrorCode error) {
        if (!error) {
            m_isHeld = false;
            flush();
            endIfEmpty();
        }
    });
}

void Pump::dropAll() {
    m_isDropping = true;
}

void Pump::stop() {
    m_timer.cancel();
    m_isDropping = true;
}

void Pump::read() {
    m_from.async_wait(Socket::wait_read,
                      [this, alive = m_owner.keepAlive()](ErrorCode error) { onReadable(error); });
}

void Pump::onReadable(ErrorCode error) {
    const std::size_t count = error ? 0 : m_from.read_some(asio::buffer(s_buffer), error);
    if (error && error != asio::error::would_block) {
        m_hasEnded = true;
        endIfEmpty();
        return;
    }
    take(s_buffer.data(), count);
    m_isPaused = m_waiting.size() > s_mostWaiting;
    if (!m_isPaused) {
        read();
    }
}

void Pump::take(const char* bytes, std::size_t count) {
    if (m_isDropping || count == 0) {
        return;
    }
    m_owner.carried(*this);
    ErrorCode error;
    const bool isFree = !isHeld() && m_waiting.empty();
    const std::size_t sent = isFree ? m_to.write_some(asio::buffer(bytes, count), error) : 0;
    m_waiting.append(bytes + sent, count - sent);
    flush();
}

void Pump::flush() {
    if (isHeld() || m_waiting.empty()) {
        return;
    }
    m_writing = std::exchange(m_waiting, {});
    asio::async_write(
        m_to, asio::buffer(m_writing),
        [this, alive = m_owner.keepAlive()](ErrorCode error, std::size_t) { onWritten(error); });
}

void Pump::onWritten(ErrorCode error) {
    m_writing = {};
    if (error) {
        m_hasEnded = true;
        m_waiting.clear();
    }
    flush();
    endIfEmpty();
    if (std::exchange(m_isPaused, false) && !m_hasEnded) {
        read();
    }
}

void Pump::endIfEmpty() {
    if (m_hasEnded && m_writing.empty() && m_waiting.empty()) {
        m_owner.ended();
    }
}

}  // namespace DOVA::load
