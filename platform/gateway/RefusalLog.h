#pragma once

#include <chrono>
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

private:
    std::map<std::string, Clock::time_point> m_toldAt;
};

}  // namespace DOVA::gateway
