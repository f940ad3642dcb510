#pragma once

#include <algorithm>
#include <boost/beast/websocket/teardown.hpp>
#include <cstddef>
#include <functional>
#include <utility>

#include "Tcp.h"

namespace DOVA::gateway {

/// A page's socket beneath its WebSocket. Beast reads on by itself over empty frames of a message
/// that does not end, and says nothing: here are the bytes counted that came in and led to nothing.
class MeteredSocket {
public:
    using executor_type = Socket::executor_type;
    using next_layer_type = Socket;

    explicit MeteredSocket(Socket socket) : m_socket(std::move(socket)) {}

    executor_type get_executor() { return m_socket.get_executor(); }
    Socket& next_layer() { return m_socket; }

    /// `waste` is told of so many bytes whenever more is read; no operation may be begun in it.
    void onWaste(std::function<void(std::size_t bytes)> waste) { m_onWaste = std::move(waste); }
    /// So many bytes of payload were handed over: they and their header are no waste.
    void use(std::size_t bytes) {
        constexpr std::size_t longestHeader = 14;
        m_unused -= std::min(m_unused, bytes + longestHeader);
    }

    template <class Buffers, class Handler>
    void async_read_some(const Buffers& buffers, Handler&& handler) {
        if (m_unused > 0) {
            m_onWaste(std::exchange(m_unused, 0));
        }
        // The handler keeps this socket, and runs on the loop's executor like every other.
        m_socket.async_read_some(buffers,
                                 [this, handler = std::forward<Handler>(handler)](
                                     boost::system::error_code error, std::size_t bytes) mutable {
                                     m_unused += bytes;
                                     handler(error, bytes);
                                 });
    }
    template <class Buffers, class Handler>
    void async_write_some(const Buffers& buffers, Handler&& handler) {
        m_socket.async_write_some(buffers, std::forward<Handler>(handler));
    }

    template <class Handler>
    friend void async_teardown(boost::beast::role_type role, MeteredSocket& socket,
                               Handler&& handler) {
        boost::beast::websocket::async_teardown(role, socket.m_socket,
                                                std::forward<Handler>(handler));
    }

private:
    Socket m_socket;
    std::function<void(std::size_t)> m_onWaste;
    std::size_t m_unused = 0;
};

}  // namespace DOVA::gateway
