#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "CloseReasons.h"
#include "Session.h"
#include "log/Log.h"
#include "messaging/MessageBus.h"
#include "session/SessionOptions.h"

namespace DOVA::session {

/// The sessions of all pages and their side towards the bus: who begins, goes on, is taken over or
/// ends, and which texts pass in which direction. No sockets; time is told by the caller.
///
/// To be used on the bus's delivery thread only.
class SessionRegistry {
public:
    using Clock = std::chrono::steady_clock;

    /// How a page's arrival was answered. Without a session it is to be closed with `refusal`,
    /// after the control text if there is one.
    struct Opening {
        std::shared_ptr<Session> session;
        std::string control;
        const CloseReason* refusal = &close_reason::s_sessionLost;
    };

    /// Attaches to the bus as connector "dova_gateway".
    SessionRegistry(std::shared_ptr<tdom::messaging::MessageBus> bus,
                    const SessionOptions& options);
    SessionRegistry(const SessionRegistry&) = delete;
    SessionRegistry& operator=(const SessionRegistry&) = delete;
    /// Detaches from the bus; links that are left hear nothing.
    ~SessionRegistry();

    /// A page came through `link`: for a fresh session, or, when it says what it `received`, to go
    /// on with the session it has. A link that the session still has is ended. A fresh session ends
    /// an older one of that page; the program hears that the older one is gone before anything of
    /// the new one.
    /// A connection with a number not above that of one which the session has had is refused, and
    /// changes nothing.
    Opening open(const std::string& clientId, std::optional<std::uint64_t> received, PageLink& link,
                 std::uint64_t attempt = 0);

    /// What is known of a page whose link is gone: it went away itself, or was cut off.
    enum class Leaving { Away, CutOff };

    /// The link is gone; the session waits for another one from now on. A link that the session
    /// has no more changes nothing.
    void disconnected(Session& session, const PageLink& link, Leaving leaving,
                      Clock::time_point now);

    /// Ends the sessions whose grace time is over.
    void endExpired(Clock::time_point now);

    /// When endExpired() is to be called next; nothing while every session has its page.
    std::optional<Clock::time_point> nextExpiry() const;

    /// The session's page is ready: the program hears of it, and every other session ends.
    void announce(Session& session);

    /// A new record from the session's page. A reason when the page may not say that; the session
    /// stays then until end().
    const CloseReason* handle(const std::shared_ptr<Session>& session, const Record& record);

    /// Ends a session for a fault of its page or its link; the program hears that it is gone.
    void end(Session& session, const CloseReason& reason);

    std::size_t size() const { return m_sessions.size(); }

private:
    struct Entry {
        std::shared_ptr<Session> session;
        tdom::messaging::MessageBus::Handle subscription = 0;
        tdom::messaging::MessageBus::Handle modelSubscription = 0;
        std::optional<Clock::time_point> expiresAt;
    };
    using Sessions = std::map<std::string, Entry>;

    Opening goOn(Sessions::iterator found, std::uint64_t received, PageLink& link);
    Opening beginAnew(Sessions::iterator found, const std::string& clientId, PageLink& link);
    Opening begin(const std::string& clientId, PageLink& link);
    Opening resume(Entry& entry, std::uint64_t received, PageLink& link);
    static Opening lost(const char* reason);
    void makeRoom();
    void push(Session& session, std::string_view shortChannel, const std::string& text);
    void sendToAll(const std::string& channel, const std::string& text);
    void passOn(Session& session, const std::string& channel, std::string text);
    void endOthers(const Session& owner);
    void drop(Sessions::iterator entry, const CloseReason& reason,
              log::Level level = log::Level::Info);
    void dropAndAnnounce(Sessions::iterator entry, const CloseReason& reason,
                         log::Level level = log::Level::Info);

    const std::shared_ptr<tdom::messaging::MessageBus> m_bus;
    const SessionLimits m_limits;
    const std::chrono::milliseconds m_graceTime;
    const std::chrono::milliseconds m_reloadTime;
    const tdom::messaging::MessageBus::ConnectorId m_connector;
    Sessions m_sessions;
};

}  // namespace DOVA::session
