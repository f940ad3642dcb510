#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "CloseReason.h"
#include "PageEnd.h"

namespace DOVA::link {

/// What a page asks for with a connection.
struct Opening {
    /// The page's identifier.
    std::string page;
    /// How many connections the page has begun, this one included; 0 when it does not count them.
    std::uint64_t attempt = 0;
    /// The last text that the page has of the session it wants to go on with; nothing for a new
    /// session.
    std::optional<std::uint64_t> received;
    /// The page is ready for its first window as soon as the session has begun.
    bool isReady = false;
};

/// The session's end of a link, in the program or standing in for it: what a page's connection
/// brings comes here.
class SessionEnd {
public:
    virtual ~SessionEnd() = default;

    /// A frame from the page, which is worked off now or later; see PageEnd::taken(). The text may
    /// go when this returns.
    virtual void receive(std::string_view frame) = 0;

    /// So many bytes of frames have gone out to the page.
    virtual void written(std::size_t bytes) = 0;

    /// The connection is gone. With s_pageLeft or s_connectionLost the session waits for the page's
    /// next one; any other reason is a fault of the page and ends the session. Nothing is told to
    /// the page's end any more.
    virtual void closed(const session::CloseReason& reason) = 0;

    /// The gateway stops: say what there is to say, and end.
    virtual void finish() = 0;
};

/// Where pages find their sessions.
class Program {
public:
    virtual ~Program() = default;

    /// A page's connection. Its greeting, and all that follows, goes to `page`, which must stay
    /// until the answer's closed() or PageEnd::end().
    virtual std::shared_ptr<SessionEnd> open(const Opening& opening, PageEnd& page) = 0;

    /// Ends everything at once: sessions that are there are forgotten, without a word to anybody.
    virtual void abandon() = 0;
};

}  // namespace DOVA::link
