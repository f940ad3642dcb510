#pragma once

#include <string>
#include <vector>

/// What happened to the fake module, in order; tests add what happened to them. Lives as long as
/// the process.
extern "C" std::vector<std::string>* fakeModuleEvents();
