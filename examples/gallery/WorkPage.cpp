#include "WorkPage.h"

#include "Words.h"

namespace gallery {

namespace {

constexpr int s_end = 1000000;
constexpr int s_step = s_end / 10;

bool isPrime(int candidate) {
    for (int divisor = 2; divisor * divisor <= candidate; ++divisor) {
        if (candidate % divisor == 0) {
            return false;
        }
    }
    return candidate > 1;
}

}  // namespace

WorkPage::WorkPage(DOVA::DVTabContainer2* book, EventLog& log, DOVA::runtime::Host& host)
    : GalleryPage(book, u"Work", log), m_host(host) {
    auto& rows = addGroup(u"In a thread of its own");
    m_count = &add<DOVA::DVText2>(rows, u"No primes were counted so far.");
    auto& row = addRow(rows);
    addButton(row, u"Count primes", [this] { start(); });
    addButton(row, u"Stop", [this] { stop(); });
}

// The thread ends first: it uses the page, and must not outlive the host.
WorkPage::~WorkPage() {
    stop();
    dismantle();
}

// The thread touches no widget: it posts what is to be shown. With the page as its owner a call
// that still waits when the page has gone is dropped.
void WorkPage::start() {
    stop();
    m_isWanted = true;
    m_worker = std::thread([this, owner = DOVA::runtime::Owner(*this)] {
        int primes = 0;
        for (int number = 1; number <= s_end && m_isWanted; ++number) {
            primes += isPrime(number) ? 1 : 0;
            if (number % s_step == 0) {
                m_host.post(owner, [this, number, primes] { showCount(number, primes); });
            }
        }
    });
}

void WorkPage::stop() {
    m_isWanted = false;
    if (m_worker.joinable()) {
        m_worker.join();
    }
}

void WorkPage::showCount(int below, int primes) {
    m_count->setText(number(primes) + u" primes below " + number(below));
    if (below == s_end) {
        tell(u"All primes are counted");
    }
}

}  // namespace gallery
