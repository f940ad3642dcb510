#include "GatewayCore.h"

#include <boost/asio/ip/address.hpp>
#include <boost/asio/post.hpp>
#include <system_error>
#include <utility>

#include "AccessRules.h"
#include "HttpConnection.h"
#include "OptionRules.h"
#include "gateway/InstalledPage.h"
#include "gateway/PublicUrl.h"
#include "log/Log.h"

namespace DOVA::gateway {

namespace asio = boost::asio;
using tcp = asio::ip::tcp;

namespace {

constexpr std::chrono::milliseconds s_acceptRetryTime{100};

}  // namespace

GatewayCore::GatewayCore(asio::io_context& loop, GatewayOptions options, MakeProgram makeProgram,
                         Entrance* entrance)
    : m_options(std::move(options)),
      m_acceptor(loop.get_executor()),
      m_acceptTimer(loop.get_executor()),
      m_stopTimer(loop.get_executor()),
      m_makeProgram(std::move(makeProgram)),
      m_entrance(entrance) {}

void GatewayCore::start() {
    if (m_options.pageFolder.empty()) {
        m_options.pageFolder = installedPage();
    }
    checkOptions(m_options);
    if (m_options.token.empty()) {
        m_options.token = AccessRules::randomToken();
    }
    listen();
    m_router.emplace(m_options, AccessRules(m_options, m_port, m_options.token), m_entrance);
    if (m_makeProgram) {
        m_program = m_makeProgram(m_options);
    }
    accept();
}

void GatewayCore::listen() {
    try {
        openAcceptor();
    } catch (const boost::system::system_error& error) {
        boost::system::error_code ignored;
        m_acceptor.close(ignored);
        throw std::system_error(
            error.code().value(), std::system_category(),
            "cannot listen on " + AccessRules::hostAndPort(m_options.bindAddress, m_options.port));
    }
    m_port = m_acceptor.local_endpoint().port();
}

void GatewayCore::openAcceptor() {
    const tcp::endpoint endpoint(asio::ip::make_address(m_options.bindAddress), m_options.port);
    m_acceptor.open(endpoint.protocol());
    m_acceptor.set_option(Acceptor::reuse_address(true));
    m_acceptor.bind(endpoint);
    m_acceptor.listen();
}

std::shared_ptr<link::Program> GatewayCore::programOf(const std::string& token) const {
    return m_entrance ? m_entrance->programOf(token) : m_program;
}

std::string GatewayCore::address() const {
    if (m_port == 0) {
        return {};
    }
    const auto publicUrl = PublicUrl::parse(m_options.publicUrl);
    const std::string page =
        publicUrl ? publicUrl->text()
                  : "http://" + AccessRules::shownHost(m_options.bindAddress, m_port) + "/";
    return m_entrance ? page : page + "#" + m_options.token;
}

void GatewayCore::accept() {
    m_acceptor.async_accept(
        [self = shared_from_this()](boost::system::error_code error, Socket socket) {
            self->onAccepted(error, std::move(socket));
        });
}

void GatewayCore::onAccepted(boost::system::error_code error, Socket socket) {
    if (!m_acceptor.is_open()) {
        return;
    }
    if (error) {
        return error == asio::error::connection_aborted ? accept() : acceptAgainLater();
    }
    boost::system::error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    std::make_shared<HttpConnection>(std::move(socket), shared_from_this())->readRequest();
    accept();
}

/// Out of descriptors, most likely: trying again at once would only burn time.
void GatewayCore::acceptAgainLater() {
    log::write(log::Level::Warning, "gateway", "the system has no room for another connection");
    m_acceptTimer.expires_after(s_acceptRetryTime);
    m_acceptTimer.async_wait([self = shared_from_this()](boost::system::error_code error) {
        if (!error && self->m_acceptor.is_open()) {
            self->accept();
        }
    });
}

void GatewayCore::connectionBegins(Connection& connection) {
    m_connections.insert(&connection);
}

void GatewayCore::connectionEnds(Connection& connection) {
    m_connections.erase(&connection);
    if (m_stopping && m_connections.empty()) {
        callWhenStopped();
    }
}

void GatewayCore::strangerComes(Connection& connection) {
    m_strangers.push_back(&connection);
    if (m_strangers.size() <= m_options.limits.strangers) {
        return;
    }
    Connection* const oldest = m_strangers.front();
    m_strangers.pop_front();
    oldest->cut();
}

void GatewayCore::strangerGoes(Connection& connection) {
    m_strangers.remove(&connection);
}

/// Strangers that have been cut count until their last operation has ended, which is at once.
bool GatewayCore::isFull() const {
    return m_connections.size() >= m_options.limits.connections + m_strangers.size();
}

void GatewayCore::stop(std::function<void()> whenStopped) {
    if (whenStopped) {
        m_whenStopped.push_back(std::move(whenStopped));
    }
    if (!std::exchange(m_stopping, true)) {
        boost::system::error_code ignored;
        m_acceptor.close(ignored);
        m_acceptTimer.cancel();
        limitStopTime();
        for (Connection* const connection :
             std::vector(m_connections.begin(), m_connections.end())) {
            connection->finish();
        }
    }
    if (m_connections.empty()) {
        callWhenStopped();
    }
}

void GatewayCore::limitStopTime() {
    m_stopTimer.expires_after(m_options.limits.stopTime);
    m_stopTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (self && !error) {
            self->cutAll();
        }
    });
}

void GatewayCore::callWhenStopped() {
    m_stopTimer.cancel();
    if (m_program) {
        m_program->abandon();
    }
    for (auto& call : std::exchange(m_whenStopped, {})) {
        asio::post(m_stopTimer.get_executor(), std::move(call));
    }
}

/// None of them goes while the list is read: each is held by its own pending operations.
void GatewayCore::cutAll() {
    for (Connection* const connection : std::vector(m_connections.begin(), m_connections.end())) {
        connection->cut();
    }
}

void GatewayCore::abandon() {
    boost::system::error_code ignored;
    m_acceptor.close(ignored);
    m_acceptTimer.cancel();
    m_stopTimer.cancel();
    m_whenStopped.clear();
    cutAll();
    if (m_program) {
        m_program->abandon();
    }
}

}  // namespace DOVA::gateway
