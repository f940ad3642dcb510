#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "CloseReason.h"

namespace DOVA::link {

/// The page went away itself: it was closed, or is being loaded again.
inline constexpr session::CloseReason s_pageLeft = {1001, "the page left"};
/// The connection broke, for whatever reason.
inline constexpr session::CloseReason s_connectionLost = {1006, "the connection is lost"};

/// The page's end of a link: the connection that carries frames to and from a browser. Its session
/// speaks to it. Every operation returns at once and calls nothing back.
class PageEnd {
public:
    virtual ~PageEnd() = default;

    /// A frame for the page: its head and, behind it, its records, if there are any. Answered with
    /// SessionEnd::written() when it has gone out.
    virtual void send(std::string head, std::shared_ptr<const std::string> records) = 0;

    /// So many bytes of what the page has sent are worked off.
    virtual void taken(std::size_t bytes) = 0;

    /// Nothing more comes and nothing more is heard: once all frames have gone out the connection
    /// is to be closed with this reason, whose text is copied.
    virtual void end(const session::CloseReason& reason) = 0;
};

}  // namespace DOVA::link
