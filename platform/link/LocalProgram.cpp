#include "LocalProgram.h"

#include "PageSession.h"
#include "log/Log.h"
#include "messaging/MessageBus.h"

namespace DOVA::link {

using session::SessionRegistry;

LocalProgram::LocalProgram(boost::asio::io_context& loop, const session::SessionOptions& options,
                           Window window)
    : m_limits(options.limits),
      m_window(window),
      m_sessions(std::in_place, tdom::messaging::MessageBus::current(), options),
      m_expiryTimer(loop.get_executor()) {}

std::shared_ptr<SessionEnd> LocalProgram::open(const Opening& opening, PageEnd& page) {
    auto session = std::make_shared<PageSession>(shared_from_this(), page, m_window);
    session->open(opening);
    return session;
}

void LocalProgram::abandon() {
    m_expiryTimer.cancel();
    m_sessions.reset();
}

void LocalProgram::pageLeft(session::Session& session, const session::PageLink& link,
                            SessionRegistry::Leaving leaving) {
    if (!m_sessions) {
        return;
    }
    log::write(log::Level::Debug, "gateway", "page " + session.id() + ": its connection is gone");
    m_sessions->disconnected(session, link, leaving, Clock::now());
    waitForExpiry();
}

void LocalProgram::waitForExpiry() {
    const auto expiry = m_sessions->nextExpiry();
    if (!expiry) {
        return;
    }
    m_expiryTimer.expires_at(*expiry);
    m_expiryTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (!self || error || !self->m_sessions) {
            return;
        }
        self->m_sessions->endExpired(Clock::now());
        self->waitForExpiry();
    });
}

}  // namespace DOVA::link
