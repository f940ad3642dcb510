#include "Simulation.h"

#include <algorithm>
#include <csignal>
#include <random>
#include <utility>

#include "RelayedLine.h"

namespace DOVA::load {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr seconds s_patienceToOpen{60};
/// So long after the last action and fault an answer may still come.
constexpr seconds s_patienceToSettle{30};
/// What the last fault does wrong shows in this time.
constexpr seconds s_aftermath{1};
constexpr milliseconds s_partingTime{1000};
/// What a process has open beside its pages.
constexpr std::size_t s_ownFiles = 64;
/// A socket of the page or, with the relay, both ends of a pair and the server's; and one of each
/// that is being replaced.
constexpr std::size_t s_filesOfDirectPage = 2;
constexpr std::size_t s_filesOfRelayedPage = 6;

/// Other runs at the same server must not have pages of the same names.
std::string nameOfRun() {
    std::random_device device;
    return "load" + std::to_string(device()) + "-" + std::to_string(device()) + "-";
}

}  // namespace

Simulation::Simulation(const Options& options)
    : m_options(options),
      m_schedule(drawSchedule(options.faults)),
      m_processes(m_loop, options.processes, options.restart),
      m_faultTimer(m_loop.get_executor()),
      m_turnTimer(m_loop.get_executor()),
      m_endTimer(m_loop.get_executor()),
      m_patience(m_loop.get_executor()),
      m_signals(m_loop, SIGINT, SIGTERM) {
    allowOpenFiles(s_ownFiles + options.pages() * (m_schedule.empty() ? s_filesOfDirectPage
                                                                      : s_filesOfRelayedPage));
    makePages();
}

void Simulation::makePages() {
    const std::string name = nameOfRun();
    for (std::size_t number = 0; number < m_options.pages(); ++number) {
        const Address& address = m_options.addresses[number / m_options.pagesPerAddress];
        m_pages.push_back(std::make_unique<Page>(
            m_loop, address, makeLine(address), taskOf(number), name + std::to_string(number),
            Page::Events{[this] { opened(); }, [this] { endWhenSettled(); }, [this] { end(); }},
            m_tally));
    }
}

/// A run without faults measures the server and nothing else.
std::unique_ptr<Line> Simulation::makeLine(const Address& address) {
    if (m_schedule.empty()) {
        return std::make_unique<DirectLine>(m_loop, address.endpoint);
    }
    return std::make_unique<RelayedLine>(m_loop, address.endpoint);
}

PageTask Simulation::taskOf(std::size_t page) const {
    const std::uint64_t share = m_options.actions / m_options.pages();
    const bool hasOneMore = page < m_options.actions % m_options.pages();
    const std::chrono::duration<double> interval(m_options.rate > 0 ? 1 / m_options.rate : 0);
    return {share + (hasOneMore ? 1 : 0), std::chrono::duration_cast<Clock::duration>(interval)};
}

std::size_t Simulation::pagesNotOpened() const {
    return static_cast<std::size_t>(std::count_if(
        m_pages.begin(), m_pages.end(), [](const auto& page) { return !page->hasOpened(); }));
}

void Simulation::run() {
    m_start = m_began = Clock::now();
    m_signals.async_wait([this](boost::system::error_code error, int) {
        if (!error) {
            end();
        }
    });
    giveUpAfter(s_patienceToOpen);
    for (std::size_t count = 0; count < m_options.opening; ++count) {
        openNext();
    }
    m_loop.run();
    m_loop.restart();
    m_loop.run_for(s_partingTime);  // less, where nobody takes longer to part
}

// ---- opening

/// Of the pages of an address only the first; the others take over in their turn.
void Simulation::openNext() {
    if (m_nextToOpen < m_pages.size()) {
        m_pages[std::exchange(m_nextToOpen, m_nextToOpen + m_options.pagesPerAddress)]->open();
    }
}

void Simulation::opened() {
    openNext();
    if (m_tally.pagesOpened == m_options.addresses.size()) {
        begin();
    }
    endWhenSettled();
}

void Simulation::begin() {
    m_began = Clock::now();
    m_measured.opening = std::chrono::duration_cast<std::chrono::microseconds>(m_began - m_start);
    m_measured.memoryPerPage = (residentMemory() - m_memoryAtStart) / m_options.addresses.size();
    m_processorAtStart = processorTime();
    giveUpAfter(m_options.duration + s_patienceToSettle);
    takeTurns(1);
    nextFault();
    const auto last =
        m_schedule.empty() ? Clock::duration() : m_schedule.back().at + m_schedule.back().length;
    const bool mustStay = m_options.actions == 0 || m_options.pagesPerAddress > 1;
    m_endTimer.expires_at(
        m_began + std::max<Clock::duration>(m_schedule.empty() ? last : last + s_aftermath,
                                            mustStay ? m_options.duration : Clock::duration()));
    m_endTimer.async_wait([this](boost::system::error_code error) {
        m_isOver = !error;
        endWhenSettled();
    });
}

void Simulation::takeTurns(std::size_t turn) {
    if (turn >= m_options.pagesPerAddress) {
        return;
    }
    m_turnTimer.expires_at(m_began + m_options.duration * turn / m_options.pagesPerAddress);
    m_turnTimer.async_wait([this, turn](boost::system::error_code error) {
        for (std::size_t page = turn; !error && page < m_pages.size();
             page += m_options.pagesPerAddress) {
            m_pages[page]->open();
        }
        if (!error) {
            takeTurns(turn + 1);
        }
    });
}

// ---- faults

void Simulation::nextFault() {
    if (m_measured.faultsDone == m_schedule.size()) {
        return;
    }
    m_faultTimer.expires_at(m_began + m_schedule[m_measured.faultsDone].at);
    m_faultTimer.async_wait([this](boost::system::error_code error) {
        if (!error) {
            strike(m_schedule[m_measured.faultsDone++]);
            nextFault();
        }
    });
}

void Simulation::strike(const Fault& fault) {
    switch (fault.kind) {
        case FaultKind::Stop:
            return stop(fault);
        case FaultKind::Kill:
            return kill(fault);
        case FaultKind::Delay:
            break;
        default:
            m_pages[fault.target]->expectLoss();
    }
    m_pages[fault.target]->line().strike(fault);
}

void Simulation::stop(const Fault& fault) {
    m_processes.stop(fault.target, fault.length, [this] {
        for (const auto& page : m_pages) {
            page->processContinued(Clock::now());
        }
    });
}

/// Whoever loses a program loses what it knew; a gateway or a service knows nothing.
void Simulation::kill(const Fault& fault) {
    const Process& process = m_processes.at(fault.target);
    const bool isProgram = process.role == "program";
    const auto pages = pagesOf(process, fault.target);
    for (Page* const page : pages) {
        page->expectLoss();
        if (isProgram) {
            page->programKilled();
        }
    }
    m_processes.kill(fault.target, fault.length, [pages] {
        for (Page* const page : pages) {
            page->processContinued(Clock::now());
        }
    });
}

/// The n-th program belongs to the n-th address, every other process to all.
std::vector<Page*> Simulation::pagesOf(const Process& process, std::size_t index) {
    std::size_t program = 0;
    for (std::size_t before = 0; before < index; ++before) {
        program += m_processes.at(before).role == process.role ? 1 : 0;
    }
    std::vector<Page*> pages;
    for (std::size_t number = 0; number < m_pages.size(); ++number) {
        if (process.role != "program" || number / m_options.pagesPerAddress == program) {
            pages.push_back(m_pages[number].get());
        }
    }
    return pages;
}

// ---- the end

void Simulation::endWhenSettled() {
    if (!m_isOver || m_hasEnded) {
        return;
    }
    // Who was not ready the last time is asked first: this comes with every answer.
    const auto unsettled = std::find_if(m_pages.begin() + m_unsettled, m_pages.end(),
                                        [](const auto& page) { return !page->isSettled(); });
    if (unsettled != m_pages.end()) {
        m_unsettled = unsettled - m_pages.begin();
    } else if (std::exchange(m_unsettled, 0) == 0) {
        end();
    } else {
        endWhenSettled();
    }
}

void Simulation::giveUpAfter(Clock::duration time) {
    m_patience.expires_after(time);
    m_patience.async_wait([this](boost::system::error_code error) {
        if (!error) {
            end();
        }
    });
}

void Simulation::end() {
    if (std::exchange(m_hasEnded, true)) {
        return;
    }
    const auto acting = Clock::now() - m_began;
    m_measured.acting = std::chrono::duration_cast<std::chrono::microseconds>(acting);
    m_measured.processorTime = processorTime() - m_processorAtStart;
    m_patience.cancel();
    m_turnTimer.cancel();
    m_faultTimer.cancel();
    m_endTimer.cancel();
    m_signals.cancel();
    for (const auto& page : m_pages) {
        page->leave();
    }
    m_loop.stop();
}

}  // namespace DOVA::load
