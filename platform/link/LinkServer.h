#pragma once

#include <boost/asio/io_context.hpp>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "LocalProgram.h"
#include "MessageStream.h"

namespace DOVA::link {

/// A program's side of links from another process: connects to the gateway's socket, and again when
/// that breaks, and joins the pages that come through it to the sessions of this process. Meanwhile
/// the sessions wait for their pages. To be used on the bus's delivery thread only.
class LinkServer : public std::enable_shared_from_this<LinkServer>,
                   private MessageStream::Listener {
public:
    /// `hello` is what the gateway is to know of this program; see the names in hello::.
    LinkServer(boost::asio::io_context& loop, const session::SessionOptions& options,
               std::string socketPath, message::Properties hello);
    ~LinkServer() override;

    /// Connects. Throws std::system_error when nobody listens. When the line breaks later and there
    /// is no gateway for as long as a page may stay away, `whenAbandoned` is called once.
    void start(std::function<void()> whenAbandoned);

    /// Sends what waits for the pages, tells them that the program ends, and calls it when all that
    /// has left.
    void stop(std::function<void()> whenStopped);

private:
    struct Link;

    void connect();
    void connectAgain();
    void message(const Message& message) override;
    void broken() override;
    void open(const Message& message);
    void tell(Link& link, const Message& message);
    std::shared_ptr<Link> take(const std::string& name);
    void tellWhenStopped();

    const std::string m_socketPath;
    const std::chrono::milliseconds m_patience;
    const std::string m_hello;
    const std::shared_ptr<LocalProgram> m_program;
    Timer m_retryTimer;
    std::shared_ptr<MessageStream> m_stream;
    std::map<std::string, std::shared_ptr<Link>, std::less<>> m_links;
    std::function<void()> m_whenAbandoned;
    Clock::time_point m_lostAt;
    std::function<void()> m_whenStopped;
    bool m_isStopping = false;
};

/// What programs tell of themselves.
namespace hello {

inline constexpr const char* s_protocol = "protocol";
inline constexpr const char* s_version = "dova.link.1";
/// What the one who started the program gave it, so that it is known again.
inline constexpr const char* s_key = "key";
/// Where the program's icons lie, and the style sheet of its page.
inline constexpr const char* s_applicationRoot = "applicationRoot";
inline constexpr const char* s_theme = "theme";

}  // namespace hello

}  // namespace DOVA::link
