#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "Line.h"
#include "RelayedConnection.h"

namespace DOVA::load {

/// By way of the relay, which stands between page and server in this process and carries out the
/// faults of connections.
class RelayedLine : public Line {
public:
    RelayedLine(Loop& loop, boost::asio::ip::tcp::endpoint server);

    void connect(Connected connected) override;
    void strike(const Fault& fault) override;
    Clock::time_point wayClearSince() const override;

private:
    using Connection = std::shared_ptr<RelayedConnection>;

    Connection current() const { return m_current.lock(); }
    void cut(bool isReset, Clock::duration blocked);
    void cutAfter(Clock::duration time);
    void holdUp(const Connection& connection);
    void served();

    Loop& m_loop;
    const boost::asio::ip::tcp::endpoint m_server;
    std::weak_ptr<RelayedConnection> m_current;
    Timer m_timer;
    /// Connections come about from then on.
    Clock::time_point m_wayClear;
    Clock::time_point m_delayedUntil;
    /// The next connection is to be held up for so long after a later one was served.
    Clock::duration m_holdUp{};
    std::vector<std::pair<Connection, Clock::duration>> m_held;
};

}  // namespace DOVA::load
