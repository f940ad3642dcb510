#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

#include "RequestRouter.h"

namespace DOVA::gateway {

/// Tells the program's log who was refused and why, so that a wrong address, proxy or token is
/// found there too. A page that goes on trying is told of once a minute for each reason, else only
/// to who debugs.
class RefusalLog {
public:
    using Clock = std::chrono::steady_clock;

    /// What `response` answers to `request`; only refusals that keep a page out are told.
    void note(const RequestRouter::Response& response, const RequestRouter::Request& request,
              Clock::time_point now);

    /// How often each reason was the answer.
    const std::map<std::string, std::uint64_t>& counts() const { return m_counts; }

private:
    std::map<std::string, Clock::time_point> m_toldAt;
    std::map<std::string, std::uint64_t> m_counts;
};

}  // namespace DOVA::gateway
