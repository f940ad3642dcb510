#include "MessageStream.h"

#include <algorithm>
#include <array>
#include <boost/asio/error.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace DOVA::link {

namespace asio = boost::asio;

namespace {

constexpr std::size_t s_readBytes = 65536;
/// In one go at the most: the system takes no more pieces.
constexpr std::size_t s_mostMessages = 256;

}  // namespace

MessageStream::MessageStream(LocalSocket socket) : m_socket(std::move(socket)) {}

void MessageStream::listen(Listener& listener) {
    m_listener = &listener;
    if (!std::exchange(m_isReading, true)) {
        boost::system::error_code ignored;
        m_socket.non_blocking(true, ignored);
        wait();
    }
}

/// Without a buffer of its own, so that thousands of streams that are silent cost next to nothing.
void MessageStream::wait() {
    m_socket.async_wait(LocalSocket::wait_read,
                        [self = shared_from_this()](boost::system::error_code error) {
                            if (error) {
                                self->breakOff();
                            } else {
                                self->read();
                            }
                        });
}

void MessageStream::read() {
    std::array<char, s_readBytes> bytes;
    boost::system::error_code error;
    const std::size_t count = m_socket.read_some(asio::buffer(bytes), error);
    if (error == asio::error::would_block) {
        return wait();
    }
    if (error || !take({bytes.data(), count})) {
        return breakOff();
    }
    if (m_listener) {
        wait();
    }
}

/// False for what is no message.
bool MessageStream::take(std::string_view bytes) {
    if (m_partial.empty()) {
        return dispatch(bytes) && (m_partial = bytes, true);
    }
    std::string all = std::exchange(m_partial, {});
    all += bytes;
    std::string_view rest = all;
    if (!dispatch(rest)) {
        return false;
    }
    if (rest.size() == all.size()) {
        m_partial = std::move(all);  // a long one is not copied for each of its pieces
    } else {
        m_partial = rest;
    }
    return true;
}

/// Takes whole messages off the front.
bool MessageStream::dispatch(std::string_view& bytes) {
    while (m_listener && bytes.size() >= message::s_lengthBytes) {
        const std::size_t length = message::lengthAt(bytes.data());
        if (length > message::s_mostBytes) {
            return false;
        }
        if (bytes.size() - message::s_lengthBytes < length) {
            break;
        }
        const auto parsed = message::parse(bytes.substr(message::s_lengthBytes, length));
        if (!parsed) {
            return false;
        }
        bytes.remove_prefix(message::s_lengthBytes + length);
        m_listener->message(*parsed);
    }
    return true;
}

void MessageStream::send(Message::Kind kind, std::string_view link, std::string_view text,
                         std::shared_ptr<const std::string> more) {
    if (!m_socket.is_open()) {
        return;
    }
    std::string head = message::head(kind, link, text.size() + (more ? more->size() : 0));
    m_outgoing.push_back({std::move(head.append(text)), std::move(more)});
    if (m_writing == 0 && !std::exchange(m_isWritePosted, true)) {
        asio::post(m_socket.get_executor(), [self = shared_from_this()] {
            self->m_isWritePosted = false;
            self->write();
        });
    }
}

void MessageStream::write() {
    if (m_writing > 0 || m_outgoing.empty()) {
        return;
    }
    m_writing = std::min(m_outgoing.size(), s_mostMessages);
    m_written.clear();
    for (std::size_t index = 0; index < m_writing; ++index) {
        const Outgoing& each = m_outgoing[index];
        m_written.push_back(asio::buffer(each.head));
        if (each.more) {
            m_written.push_back(asio::buffer(*each.more));
        }
    }
    asio::async_write(m_socket, m_written,
                      [self = shared_from_this()](boost::system::error_code error, std::size_t) {
                          self->onWritten(error);
                      });
}

void MessageStream::onWritten(boost::system::error_code error) {
    m_outgoing.erase(m_outgoing.begin(),
                     m_outgoing.begin() + static_cast<std::ptrdiff_t>(m_writing));
    m_writing = 0;
    if (error) {
        return breakOff();
    }
    if (!m_outgoing.empty()) {
        return write();
    }
    if (m_whenSent) {
        std::exchange(m_whenSent, nullptr)();
    }
    if (!m_listener) {
        breakOff();
    }
}

void MessageStream::whenSent(std::function<void()> call) {
    if (m_outgoing.empty() || !m_socket.is_open()) {
        asio::post(m_socket.get_executor(), std::move(call));
    } else {
        m_whenSent = std::move(call);
    }
}

void MessageStream::close() {
    m_listener = nullptr;
    if (m_outgoing.empty()) {
        breakOff();
    }
}

void MessageStream::breakOff() {
    boost::system::error_code ignored;
    m_socket.close(ignored);
    m_outgoing.erase(m_outgoing.begin() + static_cast<std::ptrdiff_t>(m_writing), m_outgoing.end());
    if (auto* const listener = std::exchange(m_listener, nullptr)) {
        listener->broken();
    }
    if (m_whenSent) {
        std::exchange(m_whenSent, nullptr)();
    }
}

}  // namespace DOVA::link
