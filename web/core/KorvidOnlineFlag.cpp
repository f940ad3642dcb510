#include "core/KorvidOnlineFlag.h"

#include "BaseConnection.h"
#include "host/Array.h"
#include "host/FunctionEvaluation.h"
#include "host/OnlineQuery.h"

namespace DOVA::web {

bool KorvidOnlineFlag::m_isInitialized = false;
bool KorvidOnlineFlag::m_isKorvidOnline = false;

namespace {

/// What the host's own function says: true, false, or no answer.
enum class HostAnswer { No, Yes, None };

HostAnswer askHost() {
    kaArray* result = nullptr;
    vnsvDiagnostic* diagnostic = vnsvFEVAL_NoThrow(
        "korvid.internal.environment.context.isKORVIDOnline", 1, &result, 0, nullptr);
    const HostAnswer answer = diagnostic                      ? HostAnswer::None
                              : kaIsLogicalScalarTrue(result) ? HostAnswer::Yes
                                                              : HostAnswer::No;
    kaDestroyArray(result);
    vnsvDiscardDiagnostic(diagnostic);
    return answer;
}

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
    const HostAnswer answer = askHost();
    if (answer != HostAnswer::None) {
        setFlagValue(answer == HostAnswer::Yes);
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
