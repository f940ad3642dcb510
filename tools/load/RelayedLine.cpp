#include "RelayedLine.h"

#include <algorithm>
#include <boost/asio/local/connect_pair.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/post.hpp>
#include <utility>

namespace DOVA::load {

namespace asio = boost::asio;
using ErrorCode = boost::system::error_code;

namespace {

using LocalSocket = asio::basic_stream_socket<asio::local::stream_protocol, Executor>;

}  // namespace

RelayedLine::RelayedLine(Loop& loop, asio::ip::tcp::endpoint server)
    : m_loop(loop), m_server(std::move(server)), m_timer(loop.get_executor()) {}

void RelayedLine::connect(Connected connected) {
    LocalSocket page(m_loop.get_executor());
    LocalSocket relay(m_loop.get_executor());
    ErrorCode error = asio::error::connection_refused;
    if (Clock::now() >= m_wayClear) {
        error = asio::local::connect_pair(page, relay, error);
    }
    if (!error) {
        const auto connection = std::make_shared<RelayedConnection>(
            m_loop, Socket(std::move(relay)), m_server, [this] { served(); });
        m_current = connection;
        m_holdUp != Clock::duration() ? holdUp(connection) : connection->start();
    }
    asio::post(m_loop,
               [error, page = Socket(std::move(page)), connected = std::move(connected)]() mutable {
                   connected(error, std::move(page));
               });
}

void RelayedLine::strike(const Fault& fault) {
    const Connection connection = current();
    switch (fault.kind) {
        case FaultKind::Cut:
        case FaultKind::Reset:
            return cut(fault.kind == FaultKind::Reset, fault.length);
        case FaultKind::Delay:
            if (connection) {
                connection->delay(fault.direction, fault.length);
                m_delayedUntil = Clock::now() + fault.length;
            }
            return;
        case FaultKind::Drop:
            if (connection) {
                connection->drop(fault.direction);
                cutAfter(fault.length);
            }
            return;
        case FaultKind::Late:
            m_holdUp = fault.length;
            return cut(false, {});
        case FaultKind::Stop:
        case FaultKind::Kill:
            return;
    }
}

Clock::time_point RelayedLine::wayClearSince() const {
    return std::max(m_wayClear, std::min(m_delayedUntil, Clock::now()));
}

void RelayedLine::cut(bool isReset, Clock::duration blocked) {
    m_wayClear = std::max(m_wayClear, Clock::now() + blocked);
    if (const Connection connection = current()) {
        connection->cut(isReset);
    }
}

/// Only this connection: the page may have given it up by then.
void RelayedLine::cutAfter(Clock::duration time) {
    m_timer.expires_after(time);
    m_timer.async_wait([weak = m_current](ErrorCode) {
        if (const Connection connection = weak.lock()) {
            connection->cut(false);
        }
    });
}

void RelayedLine::holdUp(const Connection& connection) {
    connection->holdUp([this, weak = std::weak_ptr(connection)] {
        m_wayClear = std::max(m_wayClear, Clock::now());
        m_held.emplace_back(weak.lock(), std::exchange(m_holdUp, {}));
    });
}

/// A later connection is there: now those that were held up may come.
void RelayedLine::served() {
    for (const auto& [held, length] : std::exchange(m_held, {})) {
        const auto timer = std::make_shared<Timer>(m_loop.get_executor(), length);
        timer->async_wait([timer, late = held](ErrorCode) { late->letGo(); });
    }
}

}  // namespace DOVA::load
