#pragma once

#include <boost/process.hpp>
#include <iterator>
#include <string>
#include <vector>

namespace DOVA::test {

/// What a run of dova-host left.
struct Ending {
    std::string output;
    std::string errors;
    int exitCode;
};

/// Runs dova-host in a folder to its end. What it reads and says is far below what a pipe holds, so
/// dealing with one stream after the other is safe.
inline Ending runDovaHost(const std::string& folder, const std::vector<std::string>& arguments,
                          const std::string& input = {}, const std::string& locale = "C.UTF-8") {
    namespace bp = boost::process;
    bp::ipstream output, errors;
    bp::opstream keys;
    bp::environment environment = boost::this_process::environment();
    environment["LC_ALL"] = locale;
    bp::child process(DOVA_HOST, bp::args(arguments), bp::start_dir(folder), environment,
                      bp::std_in<keys, bp::std_out> output, bp::std_err > errors);
    keys << input << std::flush;
    keys.pipe().close();
    Ending result{{std::istreambuf_iterator<char>(output), {}},
                  {std::istreambuf_iterator<char>(errors), {}},
                  0};
    process.wait();
    result.exitCode = process.exit_code();
    return result;
}

}  // namespace DOVA::test
