#include "core/KorvidOnlineFlag.h"

#include "../seam/Host.h"
#include "BaseConnection.h"
#include "host/OnlineQuery.h"

namespace DOVA::web {

bool KorvidOnlineFlag::m_isInitialized = false;
bool KorvidOnlineFlag::m_isKorvidOnline = false;

namespace {

constexpr const char* s_question = "korvid.internal.environment.context.isKORVIDOnline";

void subscribeOnce() {
    static bool subscribed = false;
    if (!subscribed) {
        subscribed = true;
        BaseConnection::instance().subscribe();
    }
}

}  // namespace

bool KorvidOnlineFlag::get() {
    if (m_isInitialized) {
        return m_isKorvidOnline;
    }
    m_isInitialized = true;
    if (vnonline::util::isVantrolOnline()) {
        setFlagValue(false);  // that environment has a display of its own
        return m_isKorvidOnline;
    }
    if (const auto answer = seam::askHost(s_question)) {
        setFlagValue(*answer);
    }
    return m_isKorvidOnline;
}

bool KorvidOnlineFlag::set(bool online) {
    const bool before = get();
    setFlagValue(online);
    return before;
}

void KorvidOnlineFlag::reset() {
    m_isInitialized = false;
    setFlagValue(false);
}

void KorvidOnlineFlag::setFlagValue(bool online) {
    if (online == m_isKorvidOnline) {
        return;
    }
    m_isKorvidOnline = online;
    if (online) {
        subscribeOnce();
    }
}

}  // namespace DOVA::web
