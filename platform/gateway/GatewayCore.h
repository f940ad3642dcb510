#pragma once

#include <boost/asio/io_context.hpp>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Connection.h"
#include "RefusalLog.h"
#include "RequestRouter.h"
#include "SessionEnd.h"
#include "Tcp.h"
#include "gateway/GatewayOptions.h"

namespace DOVA::gateway {

/// What the connections share: listening, the router, the sessions and the connections themselves.
/// Connections keep it alive, so that the Gateway may go while their handlers are pending.
class GatewayCore : public std::enable_shared_from_this<GatewayCore> {
public:
    /// Makes what the pages are to be joined to, once the gateway listens.
    using MakeProgram = std::function<std::shared_ptr<link::Program>(const GatewayOptions&)>;

    /// With an entrance, which must outlive the pages, there is nothing to make.
    GatewayCore(boost::asio::io_context& loop, GatewayOptions options, MakeProgram makeProgram,
                Entrance* entrance = nullptr);

    /// See Gateway for these three.
    void start();
    void stop(std::function<void()> whenStopped);
    std::string address() const;

    /// The Gateway is gone: cut everything and leave the bus.
    void abandon();

    const GatewayOptions& options() const { return m_options; }
    std::uint16_t port() const { return m_port; }
    const RequestRouter& router() const { return *m_router; }
    RefusalLog& refusals() { return m_refusals; }

    /// Where the pages with this token find their sessions.
    std::shared_ptr<link::Program> programOf(const std::string& token) const;

    void connectionBegins(Connection& connection);
    void connectionEnds(Connection& connection);

    /// A connection that has shown no token. The oldest of them makes room when they are too many.
    void strangerComes(Connection& connection);
    /// It is gone, or has shown its token.
    void strangerGoes(Connection& connection);
    /// Whether as many pages are connected as may be.
    bool isFull() const;

private:
    void listen();
    void openAcceptor();
    void accept();
    void onAccepted(boost::system::error_code error, Socket socket);
    void acceptAgainLater();
    void cutAll();
    void limitStopTime();
    void callWhenStopped();

    GatewayOptions m_options;
    Acceptor m_acceptor;
    Timer m_acceptTimer;
    Timer m_stopTimer;
    std::optional<RequestRouter> m_router;
    RefusalLog m_refusals;
    const MakeProgram m_makeProgram;
    Entrance* const m_entrance;
    std::shared_ptr<link::Program> m_program;
    std::unordered_set<Connection*> m_connections;
    std::list<Connection*> m_strangers;  // the oldest first
    std::vector<std::function<void()>> m_whenStopped;
    std::uint16_t m_port = 0;
    bool m_stopping = false;
};

}  // namespace DOVA::gateway
