#include "toolkit/DVAbstractWindow2.h"

#include <algorithm>
#include <utility>

namespace DOVA {

namespace {

// Without a host that tells of pages, a window is the backend's affair: shown once.
bool s_hostTellsOfPages = false;

/// The windows that the program opened and did not close, the last one opened at the end.
std::vector<DVAbstractWindow2*>& opened() {
    // Never destroyed: windows with static lifetime leave it while the process ends.
    static auto* windows = new std::vector<DVAbstractWindow2*>;
    return *windows;
}

}  // namespace

DVAbstractWindow2::~DVAbstractWindow2() {
    leaveOpened();
    dismantle();
}

void DVAbstractWindow2::showImplementation() {
    openBy(emitters()->show);
}

void DVAbstractWindow2::openBy(WIRO::Emitter<void()>& request) {
    const bool wasOnDisplay = isOnDisplay();
    request.emit();
    markOpened();
    takeToPage(wasOnDisplay);
}

bool DVAbstractWindow2::isOpened() const {
    const auto& windows = opened();
    return std::find(windows.begin(), windows.end(), this) != windows.end();
}

void DVAbstractWindow2::markOpened() {
    leaveOpened();
    opened().push_back(this);
}

// What is opened after a close request is announced once more, for its X to work again.
void DVAbstractWindow2::takeToPage(bool wasOnDisplay) {
    if (s_hostTellsOfPages && !isOnDisplay()) {
        emitters()->showAgain.emit();
    }
    m_awaitsPage = !isOnDisplay();
    if (!wasOnDisplay && !m_awaitsPage) {
        described();
        cameToFront();
    }
    if (!m_awaitsPage) {
        for (const TextMessage& message : std::exchange(m_kept, {})) {
            emitters()->sendTextMessage.emit(message);
        }
    }
}

bool DVAbstractWindow2::keepForPage(const TextMessage& message) {
    const bool isKept = s_hostTellsOfPages && !(isOpened() && emitters()->isReached.emit());
    if (isKept) {
        m_kept.push_back(message);
    }
    return isKept;
}

void DVAbstractWindow2::leaveOpened() {
    auto& windows = opened();
    windows.erase(std::remove(windows.begin(), windows.end(), this), windows.end());
}

// One that waits may have been announced by the backend, which knew of the page before the host
// did.
bool DVAbstractWindow2::isDue() const {
    const bool isAskedToClose = m_destroyRequest.numberOfConnections() > 0;
    return isVisible() && (m_awaitsPage || !(isAskedToClose || isOnDisplay()));
}

void DVAbstractWindow2::openDue() {
    s_hostTellsOfPages = true;
    const auto windows = opened();
    for (DVAbstractWindow2* window : windows) {
        if (window->isDue()) {
            window->takeToPage(false);
        }
    }
}

void DVAbstractWindow2::showNormal() {
    endHiding();
    openBy(emitters()->showNormal);
    cameToFront();
}

void DVAbstractWindow2::showMaximized() {
    endHiding();
    openBy(emitters()->showMaximized);
    cameToFront();
}

void DVAbstractWindow2::close() {
    leaveOpened();
    destroyImplementation();
}

// Announced also without a host that tells of pages, since the program says that it is meant.
void DVAbstractWindow2::stayOpen() {
    endHiding();
    const bool wasOnDisplay = isOnDisplay();
    if (isOpened() && !wasOnDisplay) {
        emitters()->showAgain.emit();
    }
    emitters()->show.emit();
    markOpened();
    takeToPage(wasOnDisplay);
}

}  // namespace DOVA
