#pragma once

#include <cstdint>
#include <map>

#include "Histogram.h"

namespace DOVA::load {

/// What all pages of a run have counted. Times are in microseconds.
struct Tally {
    std::uint64_t pagesOpened = 0;
    /// From the begin of the first connection to the window, or to the greeting where no window is
    /// asked for.
    Histogram open;

    std::uint64_t actions = 0;
    std::uint64_t answered = 0;
    /// From the action to the text that says it was handled.
    Histogram roundTrip;
    std::uint64_t lost = 0;
    std::uint64_t doubled = 0;
    std::uint64_t outOfOrder = 0;
    /// Not answered when their session ended with its program, or with another page: nobody knows.
    std::uint64_t unconfirmed = 0;
    /// Texts of the program that did not come, though later ones did; and that came again.
    std::uint64_t answersLost = 0;
    std::uint64_t answersDoubled = 0;

    std::uint64_t resumes = 0;
    /// From the end of its cause, or from when the page noticed where that was later.
    Histogram resume;
    /// Of these, those that no fault explains.
    std::uint64_t resumesWithoutFault = 0;
    std::uint64_t hangs = 0;
    std::uint64_t gaps = 0;
    std::uint64_t sessionsLost = 0;
    /// Sessions whose program was killed.
    std::uint64_t sessionsKilled = 0;
    std::uint64_t sessionsTakenOver = 0;
    std::map<unsigned, std::uint64_t> refusals;

    /// Frames, without what a WebSocket puts around them.
    std::uint64_t bytesUp = 0;
    std::uint64_t bytesDown = 0;
};

}  // namespace DOVA::load
