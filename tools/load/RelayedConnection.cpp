#include "RelayedConnection.h"

#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace DOVA::load {

namespace asio = boost::asio;
using asio::ip::tcp;

RelayedConnection::RelayedConnection(Loop& loop, Socket page, tcp::endpoint server,
                                     std::function<void()> served)
    : m_page(std::move(page)),
      m_server(loop.get_executor()),
      m_endpoint(std::move(server)),
      m_served(std::move(served)) {}

void RelayedConnection::connect(std::function<void()> connected) {
    m_server.async_connect(m_endpoint,
                           [this, self = shared_from_this(),
                            connected = std::move(connected)](boost::system::error_code error) {
                               if (error) {
                                   return cut(false);
                               }
                               boost::system::error_code ignored;
                               m_server.set_option(tcp::no_delay(true), ignored);
                               connected();
                           });
}

void RelayedConnection::start() {
    connect([this] {
        m_up.start();
        m_down.start();
    });
}

void RelayedConnection::holdUp(std::function<void()> kept) {
    asio::async_read_until(m_page, asio::dynamic_buffer(m_request), "\r\n\r\n",
                           [this, self = shared_from_this(), kept = std::move(kept)](
                               boost::system::error_code, std::size_t) {
                               boost::system::error_code ignored;
                               m_page.close(ignored);
                               kept();
                           });
}

/// The connection stays until the server ends it: whoever is late does not hang up at once.
void RelayedConnection::letGo() {
    connect([this] {
        m_down.dropAll();
        m_down.start();
        asio::async_write(m_server, asio::buffer(m_request),
                          [self = shared_from_this()](boost::system::error_code, std::size_t) {});
    });
}

void RelayedConnection::carried(const Pump& pump) {
    if (&pump == &m_down && m_served) {
        std::exchange(m_served, nullptr)();
    }
}

void RelayedConnection::cut(bool isReset) {
    boost::system::error_code ignored;
    m_up.stop();
    m_down.stop();
    m_served = nullptr;
    if (isReset) {
        m_server.set_option(asio::socket_base::linger(true, 0), ignored);
    }
    m_server.close(ignored);
    m_page.close(ignored);
}

}  // namespace DOVA::load
