#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <functional>

#include "Loop.h"
#include "Schedule.h"

namespace DOVA::load {

/// A page's way to its server, over as many connections as it takes.
class Line {
public:
    using Connected = std::function<void(boost::system::error_code, Socket)>;

    Line() = default;
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    virtual ~Line() = default;

    /// Calls later, with a connection or with the reason why there is none.
    virtual void connect(Connected connected) = 0;
    /// A fault of a connection befalls it. A plain line stands none: nothing happens.
    virtual void strike(const Fault& fault) = 0;
    /// Since when a connection can come about again that a fault has ended.
    virtual Clock::time_point wayClearSince() const = 0;
};

/// TCP, as it is.
class DirectLine : public Line {
public:
    DirectLine(Loop& loop, boost::asio::ip::tcp::endpoint server);
    void connect(Connected connected) override;
    void strike(const Fault&) override {}
    Clock::time_point wayClearSince() const override { return {}; }

private:
    Loop& m_loop;
    const boost::asio::ip::tcp::endpoint m_server;
};

}  // namespace DOVA::load
