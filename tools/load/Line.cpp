#include "Line.h"

#include <memory>
#include <utility>

namespace DOVA::load {

using boost::asio::ip::tcp;

DirectLine::DirectLine(Loop& loop, tcp::endpoint server)
    : m_loop(loop), m_server(std::move(server)) {}

void DirectLine::connect(Connected connected) {
    const auto socket = std::make_shared<Socket>(m_loop.get_executor());
    socket->async_connect(
        m_server, [socket, connected = std::move(connected)](boost::system::error_code error) {
            boost::system::error_code ignored;
            socket->set_option(tcp::no_delay(true), ignored);
            connected(error, std::move(*socket));
        });
}

}  // namespace DOVA::load
