#pragma once

#include <boost/asio/basic_stream_socket.hpp>
#include <boost/asio/buffer.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Loop.h"
#include "Message.h"

namespace DOVA::link {

using LocalSocket = boost::asio::basic_stream_socket<boost::asio::local::stream_protocol, Executor>;

/// Messages both ways over a connected unix socket, each whole and in order. It is kept alive by
/// its own operations until it is closed or the other side has gone.
class MessageStream : public std::enable_shared_from_this<MessageStream> {
public:
    struct Listener {
        virtual ~Listener() = default;
        virtual void message(const Message& message) = 0;
        /// The other side has gone, or says what is no message; nothing is heard any more.
        virtual void broken() = 0;
    };

    explicit MessageStream(LocalSocket socket);

    /// What comes from now on is for this listener; a listener that hears something may hand over
    /// to another one.
    void listen(Listener& listener);

    /// Sends it; what is sent within one turn of the loop leaves together.
    void send(Message::Kind kind, std::string_view link, std::string_view text,
              std::shared_ptr<const std::string> more = {});

    /// What has been sent still leaves; nothing is heard any more.
    void close();

    /// Calls it when everything that has been sent has left, or never will.
    void whenSent(std::function<void()> call);

    LocalSocket& socket() { return m_socket; }

private:
    struct Outgoing {
        std::string head;
        std::shared_ptr<const std::string> more;
    };

    void wait();
    void read();
    bool take(std::string_view bytes);
    bool dispatch(std::string_view& bytes);
    void write();
    void onWritten(boost::system::error_code error);
    void breakOff();

    LocalSocket m_socket;
    Listener* m_listener = nullptr;
    std::string m_partial;  // the beginning of a message
    std::deque<Outgoing> m_outgoing;
    std::vector<boost::asio::const_buffer> m_written;  // what is being written now
    std::size_t m_writing = 0;                         // messages
    std::function<void()> m_whenSent;
    bool m_isWritePosted = false;
    bool m_isReading = false;
};

}  // namespace DOVA::link
