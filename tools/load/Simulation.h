#pragma once

#include <boost/asio/signal_set.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Loop.h"
#include "Options.h"
#include "Page.h"
#include "Processes.h"
#include "Resources.h"
#include "Schedule.h"
#include "Tally.h"

namespace DOVA::load {

/// What a run gave beside what its pages counted.
struct Measured {
    std::chrono::microseconds opening{0};
    std::chrono::microseconds acting{0};
    /// Of this process: while all pages were open, and what they take.
    std::chrono::microseconds processorTime{0};
    std::uint64_t memoryPerPage = 0;
    std::size_t faultsDone = 0;
};

/// One run: opens the pages, has them act, carries out the schedule, and waits until all is
/// answered.
class Simulation {
public:
    /// Throws std::runtime_error when the system does not let it have so many connections.
    explicit Simulation(const Options& options);

    /// Once. Ends early at SIGINT and SIGTERM, when a page is not let in or cannot open, and when
    /// no answer comes for too long: what that means stands in the count.
    void run();

    const std::vector<Fault>& schedule() const { return m_schedule; }
    const Tally& tally() const { return m_tally; }
    const Measured& measured() const { return m_measured; }
    std::size_t pagesNotOpened() const;

private:
    void makePages();
    std::unique_ptr<Line> makeLine(const Address& address);
    PageTask taskOf(std::size_t page) const;
    void openNext();
    void opened();
    void begin();
    void takeTurns(std::size_t turn);
    void nextFault();
    void strike(const Fault& fault);
    void stop(const Fault& fault);
    void kill(const Fault& fault);
    std::vector<Page*> pagesOf(const Process& process, std::size_t index);
    void endWhenSettled();
    void giveUpAfter(Clock::duration time);
    void end();

    const Options& m_options;
    const std::vector<Fault> m_schedule;
    Loop m_loop{1};
    Tally m_tally;
    Measured m_measured;
    Processes m_processes;
    std::vector<std::unique_ptr<Page>> m_pages;
    Timer m_faultTimer;
    Timer m_turnTimer;
    Timer m_endTimer;
    Timer m_patience;
    boost::asio::signal_set m_signals;
    std::size_t m_nextToOpen = 0;
    std::ptrdiff_t m_unsettled = 0;
    Clock::time_point m_start;
    Clock::time_point m_began;
    std::chrono::microseconds m_processorAtStart{0};
    const std::uint64_t m_memoryAtStart = residentMemory();
    bool m_isOver = false;
    bool m_hasEnded = false;
};

}  // namespace DOVA::load
