#include "SessionRegistry.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "PageChannels.h"
#include "ProtocolNames.h"

namespace DOVA::session {

namespace {

using namespace std::string_view_literals;

/// The first frame of a connection: what became of the session, and one thing more.
std::string greeting(std::string_view session, std::string_view member, std::string_view value) {
    std::string text = "{";
    for (const std::string_view part :
         {json::session, ":"sv, session, ","sv, member, ":"sv, value}) {
        text += part;
    }
    return text + "}";
}

}  // namespace

SessionRegistry::SessionRegistry(std::shared_ptr<tdom::messaging::MessageBus> bus,
                                 const SessionOptions& options)
    : m_bus(std::move(bus)),
      m_limits(options.limits),
      m_graceTime(options.graceTime),
      m_reloadTime(std::min(options.reloadTime, options.graceTime)),
      m_connector(m_bus->attach("dova_gateway")) {
    m_bus->subscribe(m_connector, names::rootChannel,
                     [this](const std::string& channel, const std::string& text) {
                         if (PageChannels::isPing(text)) {
                             sendToAll(channel, text);
                         }
                     });
    m_bus->subscribe(
        m_connector, names::modelChannel,
        [this](const std::string& channel, const std::string& text) { sendToAll(channel, text); });
}

SessionRegistry::~SessionRegistry() {
    m_bus->detach(m_connector);
    for (auto& [id, entry] : m_sessions) {
        entry.session->setEnded();
    }
}

SessionRegistry::Opening SessionRegistry::open(const std::string& clientId,
                                               std::optional<std::uint64_t> received,
                                               PageLink& link, std::uint64_t attempt) {
    const auto found = m_sessions.find(clientId);
    if (found != m_sessions.end() && found->second.session->isOutdated(attempt)) {
        return {nullptr, {}, &close_reason::s_laterAttempt};
    }
    Opening opening = received ? goOn(found, *received, link) : beginAnew(found, clientId, link);
    if (opening.session) {
        opening.session->setAttempt(attempt);
    }
    log::write(log::Level::Info, "gateway", "page " + clientId + ": " + opening.control);
    return opening;
}

SessionRegistry::Opening SessionRegistry::goOn(Sessions::iterator found, std::uint64_t received,
                                               PageLink& link) {
    return found == m_sessions.end() ? lost("the session is unknown or expired")
                                     : resume(found->second, received, link);
}

SessionRegistry::Opening SessionRegistry::beginAnew(Sessions::iterator found,
                                                    const std::string& clientId, PageLink& link) {
    // A program that heard nothing of the end would take the new page for the one that it has.
    if (found != m_sessions.end()) {
        dropAndAnnounce(found, close_reason::s_openedInAnotherTab);
    }
    return begin(clientId, link);
}

SessionRegistry::Opening SessionRegistry::begin(const std::string& clientId, PageLink& link) {
    makeRoom();
    auto session = std::make_shared<Session>(clientId, m_limits);
    session->setLink(&link);
    const std::string own = PageChannels::own(clientId);
    const auto subscription = m_bus->subscribeTree(
        m_connector, own,
        [this, session, own](const std::string& channel, const std::string& text) {
            push(*session, PageChannels::shorten(own, channel), text);
        });
    // What only this page wants of the model document.
    const auto modelSubscription =
        m_bus->subscribe(m_connector, std::string(names::modelChannel) + "/" + clientId,
                         [this, session](const std::string&, const std::string& text) {
                             if (session->isReady()) {
                                 push(*session, names::modelChannel, text);
                             }
                         });
    m_sessions.emplace(clientId, Entry{session, subscription, modelSubscription, {}});
    return {session, greeting(json::fresh, json::received, "0")};
}

SessionRegistry::Opening SessionRegistry::resume(Entry& entry, std::uint64_t received,
                                                 PageLink& link) {
    const std::shared_ptr<Session> session = entry.session;
    // Somebody else may have it: a page that knows less than it said before is another one.
    if (!session->resume(received)) {
        return lost("the texts that are missing are no longer kept");
    }
    PageLink* const former = session->link();
    session->setLink(&link);
    entry.expiresAt.reset();
    if (former) {
        former->end(close_reason::s_openedInAnotherTab);
    }
    return {session, greeting(json::resumed, json::received, std::to_string(session->received()))};
}

SessionRegistry::Opening SessionRegistry::lost(const char* reason) {
    return {nullptr, greeting(json::lost, json::reason, std::string("\"") + reason + "\"")};
}

/// Sessions that wait for their page must not gather: each may keep a full buffer.
void SessionRegistry::makeRoom() {
    if (m_sessions.size() < m_limits.sessions) {
        return;
    }
    auto next = m_sessions.end();
    for (auto entry = m_sessions.begin(); entry != m_sessions.end(); ++entry) {
        if (entry->second.expiresAt &&
            (next == m_sessions.end() || entry->second.expiresAt < next->second.expiresAt)) {
            next = entry;
        }
    }
    if (next != m_sessions.end()) {
        dropAndAnnounce(next, close_reason::s_sessionLost);
    }
}

void SessionRegistry::disconnected(Session& session, const PageLink& link, Leaving leaving,
                                   Clock::time_point now) {
    if (session.link() != &link) {
        return;
    }
    session.setLink(nullptr);
    const auto found = m_sessions.find(session.id());
    if (found != m_sessions.end() && found->second.session.get() == &session) {
        found->second.expiresAt = now + (leaving == Leaving::Away ? m_reloadTime : m_graceTime);
    }
}

void SessionRegistry::endExpired(Clock::time_point now) {
    for (auto entry = m_sessions.begin(); entry != m_sessions.end();) {
        const auto next = std::next(entry);
        if (entry->second.expiresAt && *entry->second.expiresAt <= now) {
            dropAndAnnounce(entry, close_reason::s_sessionLost);
        }
        entry = next;
    }
}

std::optional<SessionRegistry::Clock::time_point> SessionRegistry::nextExpiry() const {
    std::optional<Clock::time_point> earliest;
    for (const auto& [id, entry] : m_sessions) {
        if (entry.expiresAt && (!earliest || *entry.expiresAt < *earliest)) {
            earliest = entry.expiresAt;
        }
    }
    return earliest;
}

const CloseReason* SessionRegistry::handle(const std::shared_ptr<Session>& session,
                                           const Record& record) {
    switch (PageChannels::classify(session->id(), record.channel, record.text)) {
        case PageChannels::Kind::Refused:
            return &close_reason::s_channelNotAllowed;
        case PageChannels::Kind::Own:
            passOn(*session, PageChannels::expand(PageChannels::own(session->id()), record.channel),
                   std::string(record.text));
            break;
        case PageChannels::Kind::ClientReady:
            announce(*session);
            break;
        case PageChannels::Kind::ClientDestroyed:
            session->setReady();  // even one that never came is to be heard going
            dropAndAnnounce(m_sessions.find(session->id()), close_reason::s_sessionEnded);
            break;
        case PageChannels::Kind::Snapshot:
            passOn(*session, names::modelChannel, std::string(record.text));
            break;
    }
    return nullptr;
}

/// The program serves one page at a time, so that the others' sessions are over. It replaces them
/// itself and need not be told.
void SessionRegistry::announce(Session& session) {
    session.setReady();
    endOthers(session);
    passOn(session, names::rootChannel, PageChannels::clientReady(session.id()));
}

void SessionRegistry::passOn(Session& session, const std::string& channel, std::string text) {
    if (m_bus->idle()) {
        session.settle();
    }
    session.passedOn(m_bus->publishPlaced(m_connector, channel, std::move(text)));
}

void SessionRegistry::endOthers(const Session& owner) {
    for (auto entry = m_sessions.begin(); entry != m_sessions.end();) {
        const auto next = std::next(entry);
        if (entry->second.session.get() != &owner) {
            drop(entry, close_reason::s_takenOver);
        }
        entry = next;
    }
}

void SessionRegistry::end(Session& session, const CloseReason& reason) {
    const auto found = m_sessions.find(session.id());
    if (found != m_sessions.end() && found->second.session.get() == &session) {
        dropAndAnnounce(found, reason, log::Level::Warning);
    }
}

void SessionRegistry::dropAndAnnounce(Sessions::iterator entry, const CloseReason& reason,
                                      log::Level level) {
    const std::shared_ptr<Session> session = entry->second.session;
    drop(entry, reason, level);
    if (session->isReady()) {
        m_bus->publish(m_connector, names::rootChannel,
                       PageChannels::clientDestroyed(session->id()));
    }
}

/// A link must not find the session again while it is told that it has lost it.
void SessionRegistry::drop(Sessions::iterator entry, const CloseReason& reason, log::Level level) {
    const std::shared_ptr<Session> session = entry->second.session;
    log::write(
        level, "gateway",
        "page " + session->id() + ": " + reason.text + " (" + std::to_string(reason.code) + ")");
    m_bus->unsubscribe(entry->second.subscription);
    m_bus->unsubscribe(entry->second.modelSubscription);
    m_sessions.erase(entry);
    session->setEnded();
    PageLink* const link = session->link();
    session->setLink(nullptr);
    if (link) {
        link->end(reason);
    }
}

/// A page that never said that it is ready is asked to, and told nothing else.
void SessionRegistry::sendToAll(const std::string& channel, const std::string& text) {
    std::vector<std::shared_ptr<Session>> all;
    for (const auto& [id, entry] : m_sessions) {
        if (entry.session->isReady() || channel == names::rootChannel) {
            all.push_back(entry.session);
        }
    }
    for (const auto& session : all) {
        push(*session, channel, text);
    }
}

void SessionRegistry::push(Session& session, std::string_view shortChannel,
                           const std::string& text) {
    if (session.hasEnded() || !FrameCodec::isCarriable(text) ||
        !FrameCodec::isCarriable(shortChannel)) {
        return;
    }
    if (!session.downward().push(shortChannel, text, session.knownAt(m_bus->lastKnown()))) {
        end(session, close_reason::s_tooMuchUnacknowledged);
    } else if (session.link()) {
        session.link()->textsWait();
    }
}

}  // namespace DOVA::session
