#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <functional>
#include <memory>
#include <string>

#include "Loop.h"
#include "Pump.h"
#include "Schedule.h"

namespace DOVA::load {

/// One connection of a page through the relay, which can do to it what networks do.
class RelayedConnection : public Pump::Owner,
                          public std::enable_shared_from_this<RelayedConnection> {
public:
    /// `served` is called when the first bytes from the server pass.
    RelayedConnection(Loop& loop, Socket page, boost::asio::ip::tcp::endpoint server,
                      std::function<void()> served);

    void start();
    /// In place of start(): keeps the page's request, ends the page's side, and calls.
    void holdUp(std::function<void()> kept);
    /// The request that was held up goes out; what the server says to it nobody hears.
    void letGo();

    void delay(Direction direction, Clock::duration time) { pump(direction).holdFor(time); }
    void drop(Direction direction) { pump(direction).dropAll(); }
    void cut(bool isReset);

    std::shared_ptr<void> keepAlive() override { return shared_from_this(); }
    void carried(const Pump& pump) override;
    void ended() override { cut(false); }

private:
    Pump& pump(Direction direction) { return direction == Direction::Up ? m_up : m_down; }
    void connect(std::function<void()> connected);
    void readRequest(const std::function<void()>& kept);

    Socket m_page;
    Socket m_server;
    const boost::asio::ip::tcp::endpoint m_endpoint;
    std::function<void()> m_served;
    Pump m_up{*this, m_page, m_server};
    Pump m_down{*this, m_server, m_page};
    std::string m_request;
};

}  // namespace DOVA::load
