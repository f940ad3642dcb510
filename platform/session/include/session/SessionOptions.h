#pragma once

#include <chrono>
#include <cstddef>

namespace DOVA::session {

/// What the sessions of pages may cost the program. None may be 0.
struct SessionLimits {
    /// Texts a second that a page may go on sending; beyond it they are handled more slowly. An
    /// array counts as its objects; each KiB and frame counts as a text.
    std::size_t upwardRecordsPerSecond = 2000;
    /// Texts that a page may send at once before that rate counts. One text that counts for more
    /// closes its connection with 4003.
    std::size_t upwardBurstRecords = 4000;
    /// Bytes kept for one session until its page acknowledges them; with more the session is lost.
    std::size_t downwardBytes = 64 * 1024 * 1024;
    /// Texts kept for one session until its page acknowledges them; with more the session is lost.
    std::size_t downwardRecords = 200000;
    /// Waiting texts travel together in frames of about this many bytes; a longer text travels
    /// alone.
    std::size_t joinedFrameBytes = 256 * 1024;
    /// Sessions at a time: a further one ends the one that has waited longest for its page.
    std::size_t sessions = 64;
    /// Longest time a text of the page waits for its acknowledgement.
    std::chrono::milliseconds acknowledgeTime{200};
};

/// What becomes of sessions.
struct SessionOptions {
    /// How long a session whose connection broke waits for its page before it ends. 0 or more.
    std::chrono::milliseconds graceTime{300000};
    /// The same after a page went itself, with close code 1001 (RFC 6455 section 7.4.1): it was
    /// closed, or is being loaded again. 0 or more; more than graceTime counts as graceTime.
    std::chrono::milliseconds reloadTime{15000};
    SessionLimits limits;
};

}  // namespace DOVA::session
