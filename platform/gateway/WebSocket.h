#pragma once

#include <boost/system/error_code.hpp>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "CloseReason.h"
#include "Connection.h"
#include "RequestRouter.h"
#include "Tcp.h"

namespace DOVA::gateway {

/// The transport of one page: pieces of texts up, frames down, the handshakes at both ends, and the
/// time limits of all of these. A hook is called when the operation of its name is over, never
/// before that has returned, and none after onCut().
class WebSocket : public Connection, public std::enable_shared_from_this<WebSocket> {
public:
    /// Completes the opening handshake that `request` asks for. To be called once.
    void accept(const RequestRouter::Request& request);
    void cut() final;

protected:
    /// Where it is in its life. Broken: the page broke the rules of WebSockets and was told so;
    /// nothing more can be sent.
    enum class Phase { Opening, Open, Broken, Closing, Cut };

    WebSocket(Socket socket, std::shared_ptr<GatewayCore> core);
    ~WebSocket() override;

    Phase phase() const { return m_phase; }
    bool isWriting() const { return m_writingSince.has_value(); }
    Executor executor() const;

    /// Reads the next piece of a text. The page counts as silent while it waits for one.
    void read();
    /// The pieces since the last discardText().
    std::string_view text() const;
    void discardText();

    /// Sends one frame; both parts must stay as they are until it is written.
    void write(std::string_view header, std::string_view records);

    /// The closing handshake; the connection is cut at its end. Not while a frame is being written.
    void close(const session::CloseReason& reason);

    virtual void onOpened() = 0;
    virtual void onPiece(bool isLast) = 0;
    virtual void onWritten() = 0;
    /// The page sent what no page of ours sends.
    virtual void onFault(const session::CloseReason& reason) = 0;
    /// So many control or empty frames came, for which the page is to be closed when they are too
    /// many. Called within other operations: no operation may be begun in it.
    virtual void onUseless(std::size_t frames, const session::CloseReason& reason) = 0;
    /// Nothing is sent or heard any more; `isLeaving` when the page said that it goes away.
    virtual void onCut(bool isLeaving) = 0;

private:
    using ErrorCode = boost::system::error_code;
    struct Transport;

    void setOptions(const std::string& cookie);
    void onAccepted(ErrorCode error);
    void onRead(ErrorCode error, std::size_t bytes);
    void onReadFailed(ErrorCode error);
    void onControlFrame(std::size_t bytes);
    void watch();
    void checkTime();
    void ping();

    const std::unique_ptr<Transport> m_transport;
    Timer m_watchTimer;
    Phase m_phase = Phase::Opening;
    std::optional<Clock::time_point> m_silentSince;
    std::optional<Clock::time_point> m_writingSince;
    bool m_isPinging = false;
};

}  // namespace DOVA::gateway
