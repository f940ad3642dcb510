#include <exception>
#include <iostream>

#include "Options.h"
#include "Report.h"
#include "Simulation.h"

namespace {

constexpr int s_foundFault = 1;
constexpr int s_cannotRun = 2;

}  // namespace

int main(int argc, char** argv) try {
    DOVA::load::Options options;
    if (const auto exitCode = DOVA::load::parseOptions(argc, argv, options)) {
        return *exitCode;
    }
    if (options.isScheduleOnly) {
        std::cout << DOVA::load::toText(DOVA::load::drawSchedule(options.faults)) << std::flush;
        return 0;
    }
    DOVA::load::Simulation run(options);
    run.run();
    std::cout << DOVA::load::toJson(options, run) << std::endl;
    const std::string complaint = DOVA::load::complaintAbout(run);
    if (!complaint.empty()) {
        std::cerr << "dova-load: " + complaint + "\n";
        return s_foundFault;
    }
    return 0;
} catch (const std::exception& error) {
    std::cerr << "dova-load: " << error.what() << "\n";
    return s_cannotRun;
}
