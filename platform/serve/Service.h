#pragma once

#include <boost/asio/basic_socket_acceptor.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Metrics.h"
#include "Settings.h"
#include "VisitorProgram.h"
#include "Visitors.h"
#include "gateway/Entrance.h"
#include "gateway/Gateway.h"

namespace DOVA::serve {

/// A gateway for all visitors, and a program for each.
class Service final : private gateway::Entrance {
public:
    Service(boost::asio::io_context& loop, Settings settings);
    ~Service() override;

    /// Opens the socket for the programs, then the gateway. Throws std::system_error or
    /// std::runtime_error with a text for people.
    void start();

    /// Where to go, without anybody's token, and who may.
    std::string address() const { return m_gateway.address(); }
    const Visitors& visitors() const { return m_visitors; }

    /// Reads the file of visitors again. One with a fault changes nothing; the log says so.
    void reload();

    /// No further visitors; ends as stop() does once nobody has a page open, or after `patience`.
    void drain(std::chrono::milliseconds patience, std::function<void()> whenStopped);

    /// What there is to tell of it.
    Metrics metrics() const;
    /// Whether a further visitor may come.
    bool hasRoom() const { return !m_isDraining && running() < m_settings.programs; }

    /// Ends the programs, which tell their pages, then everything, and calls it.
    void stop(std::function<void()> whenStopped);

private:
    class Comer;
    using Acceptor =
        boost::asio::basic_socket_acceptor<boost::asio::local::stream_protocol, link::Executor>;

    Verdict judge(std::string_view token) const override;
    std::shared_ptr<link::Program> programOf(std::string_view token) override;

    void readVisitors();
    void openSocket();
    void accept();
    void greet(const std::string& key, std::shared_ptr<link::MessageStream> stream);
    std::shared_ptr<VisitorProgram> makeProgram(const std::string& visitor, const std::string& key);
    void expectFormerPrograms();
    void noteKeys() const;
    std::size_t running() const;
    void watchIdle();
    void oneHasEnded();
    void drained(link::Clock::time_point end, std::function<void()> whenStopped);
    std::size_t pages() const;

    boost::asio::io_context& m_loop;
    Settings m_settings;
    Visitors m_visitors;
    std::map<std::string, std::shared_ptr<VisitorProgram>> m_programs;  // by visitor
    std::map<std::string, std::weak_ptr<VisitorProgram>> m_keys;  // programs by what they show
    StartTimes m_starts;
    bool m_isDraining = false;
    bool m_ownsFolder = false;
    Acceptor m_acceptor;
    link::Timer m_idleTimer;
    link::Timer m_drainTimer;
    gateway::Gateway m_gateway;
    std::function<void()> m_whenStopped;
};

}  // namespace DOVA::serve
