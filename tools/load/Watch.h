#pragma once

#include <cstdint>

#include "Loop.h"

namespace DOVA::load {

/// Notices that a connection hangs, as the page does: a pulled cable closes nothing. One timer that
/// is left running, because one made for every action would cost as much as the action.
class Watch {
public:
    struct Watched {
        Watched() = default;
        Watched(const Watched&) = delete;
        Watched& operator=(const Watched&) = delete;
        virtual ~Watched() = default;
        /// A number that changes with every answer; 0 when none is owed.
        virtual std::uint64_t awaited() const = 0;
        /// Sends a question that is answered at once, where the connection is open.
        virtual void ask() = 0;
        /// Nobody is there any more.
        virtual void hangs() = 0;
    };

    Watch(Loop& loop, Watched& watched);

    /// A connection is being opened: its greeting is awaited.
    void begin();
    /// Something was sent that asks for an answer.
    void sent();
    /// Something has come.
    void heard();
    void end();

private:
    void await(std::uint64_t awaited);
    void look();
    void lookAt(Clock::time_point due);
    Clock::time_point due() const;

    Watched& m_watched;
    Timer m_timer;
    Clock::time_point m_due;
    Clock::time_point m_heardAt;
    std::uint64_t m_awaited = 0;
    Clock::time_point m_since;
    bool m_hasAsked = false;
    bool m_hasTold = false;
};

}  // namespace DOVA::load
