#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace DOVA::load {

/// What happens to a page's connection, or to a process.
enum class FaultKind {
    /// The connection ends (FIN) on both sides; for the fault's length no other one comes about.
    Cut,
    /// The same with RST.
    Reset,
    /// One direction is held up for the fault's length, then all of it comes at once.
    Delay,
    /// What one direction carries from now on is gone; after the fault's length the connection is
    /// cut.
    Drop,
    /// The connection is cut, and the request for the next one held up: the page takes it for
    /// failed, a later one is served, and after the fault's length the held one reaches the server.
    Late,
    /// A process stands still for the fault's length.
    Stop,
    /// A process is killed and, after the fault's length, started again.
    Kill,
};

/// What options and the printed schedule call the kinds, in their order.
inline constexpr const char* s_faultNames[] = {"cut",  "reset", "delay", "drop",
                                               "late", "stop",  "kill"};

enum class Direction { Up, Down };

struct Fault {
    std::chrono::milliseconds at;
    FaultKind kind;
    /// The number of a page or, to stop and to kill, of a process; both from 0.
    std::size_t target;
    /// Only of Delay and Drop.
    Direction direction;
    std::chrono::milliseconds length;
};

inline bool isOfProcess(FaultKind kind) {
    return kind == FaultKind::Stop || kind == FaultKind::Kill;
}

/// What a schedule is drawn from. Equal plans give equal schedules, on every machine.
struct FaultPlan {
    std::uint64_t seed = 1;
    std::size_t count = 0;
    /// Each as likely as every other.
    std::vector<FaultKind> kinds;
    std::size_t pages = 1;
    std::size_t processes = 0;
    /// Faults begin between a twentieth of it and its end less another twentieth.
    std::chrono::milliseconds span{0};
};

/// In the order of their times. Nothing without kinds; kinds of processes need a process.
std::vector<Fault> drawSchedule(const FaultPlan& plan);

/// A line for each fault: "AT_MS KIND page|process NUMBER [up|down] LENGTH_MS".
std::string toText(const std::vector<Fault>& schedule);

/// Short enough to compare two runs by: FNV-1a of toText(), 16 hexadecimal digits.
std::string digest(const std::vector<Fault>& schedule);

}  // namespace DOVA::load
