#pragma once

#include <atomic>
#include <thread>

#include "GalleryPage.h"
#include "runtime/Host.h"

namespace gallery {

/// Work that takes its time: it is done in a thread of its own, which tells the page how far it is.
class WorkPage : public GalleryPage {
public:
    /// `host` outlives the page.
    WorkPage(DOVA::DVTabContainer2* book, EventLog& log, DOVA::runtime::Host& host);
    ~WorkPage() override;

private:
    void start();
    void stop();
    void showCount(int below, int primes);

    DOVA::runtime::Host& m_host;
    DOVA::DVText2* m_count = nullptr;
    std::atomic<bool> m_isWanted{false};
    std::thread m_worker;
};

}  // namespace gallery
