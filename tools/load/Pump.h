#pragma once

#include <boost/system/error_code.hpp>
#include <functional>
#include <memory>
#include <string>

#include "Loop.h"

namespace DOVA::load {

/// Carries what comes from one socket to another, as long as nothing is wrong with the way. Idle,
/// it has no buffer.
class Pump {
public:
    struct Owner {
        Owner() = default;
        Owner(const Owner&) = delete;
        Owner& operator=(const Owner&) = delete;
        virtual ~Owner() = default;
        /// Keeps the owner, and so both sockets, alive while an operation is under way.
        virtual std::shared_ptr<void> keepAlive() = 0;
        /// The first bytes, and all later ones.
        virtual void carried(const Pump& pump) = 0;
        /// The source has ended, and all that came before has been carried on.
        virtual void ended() = 0;
    };

    Pump(Owner& owner, Socket& from, Socket& to);

    void start();
    /// Keeps everything back until then.
    void holdFor(Clock::duration time);
    /// What comes from now on is gone.
    void dropAll();
    void stop();

private:
    using ErrorCode = boost::system::error_code;

    bool isHeld() const { return m_isHeld || !m_writing.empty(); }
    void read();
    void onReadable(ErrorCode error);
    void take(const char* bytes, std::size_t count);
    void flush();
    void onWritten(ErrorCode error);
    void endIfEmpty();

    Owner& m_owner;
    Socket& m_from;
    Socket& m_to;
    Timer m_timer;
    std::string m_waiting;
    std::string m_writing;
    bool m_isHeld = false;
    bool m_isDropping = false;
    bool m_isPaused = false;
    bool m_hasEnded = false;
};

}  // namespace DOVA::load
