#pragma once

#include <boost/asio/io_context.hpp>
#include <cstddef>
#include <memory>
#include <optional>

#include "Loop.h"
#include "SessionEnd.h"
#include "SessionRegistry.h"

namespace DOVA::link {

/// The program is this process: its sessions are kept here, on the bus's delivery thread, which the
/// loop must be.
class LocalProgram final : public Program, public std::enable_shared_from_this<LocalProgram> {
public:
    /// So many bytes may be on their way to a page before its session waits for written(). With 1
    /// one frame goes at a time, and texts join while it does; more is for page ends that are far.
    using Window = std::size_t;

    /// Attaches to the process's bus.
    LocalProgram(boost::asio::io_context& loop, const session::SessionOptions& options,
                 Window window);

    std::shared_ptr<SessionEnd> open(const Opening& opening, PageEnd& page) override;
    void abandon() override;

    /// Null after abandon().
    session::SessionRegistry* sessions() { return m_sessions ? &*m_sessions : nullptr; }
    const session::SessionLimits& limits() const { return m_limits; }
    Executor executor() { return m_expiryTimer.get_executor(); }

    /// A page's link is gone; its session waits for another from now on.
    void pageLeft(session::Session& session, const session::PageLink& link,
                  session::SessionRegistry::Leaving leaving);

private:
    void waitForExpiry();

    const session::SessionLimits m_limits;
    const Window m_window;
    std::optional<session::SessionRegistry> m_sessions;
    Timer m_expiryTimer;
};

}  // namespace DOVA::link
