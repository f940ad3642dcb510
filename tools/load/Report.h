#pragma once

#include <string>

#include "Options.h"
#include "Simulation.h"

namespace DOVA::load {

/// What a run gave as one line of JSON; the README lists the names.
std::string toJson(const Options& options, const Simulation& run);

/// One sentence about what the server did wrong; empty when everything was handled once, in order,
/// and no session was lost.
std::string complaintAbout(const Simulation& run);

}  // namespace DOVA::load
