#pragma once

#include <optional>

#include "runtime/Export.h"
#include "runtime/HostOptions.h"

namespace CLI {
class App;
}

namespace DOVA::runtime {

/// Adds the options of every served program to a program's own command line: `--port N`,
/// `--bind ADDRESS`, `--allow-remote`, `--public-url URL`, `--host NAME`, `--origin URL`,
/// `--token-file FILE`, `--theme FILE`, `--log-level LEVEL`, and `--version` with the version of
/// this library, unless `app` has a version flag. `--help` is CLI::App's own.
class DOVA_RUNTIME_EXPORT HostCommandLine {
public:
    /// Adds the options; `app` and this object must stay where they are until parse() is done. The
    /// name of `app` begins its error lines.
    explicit HostCommandLine(CLI::App& app);
    HostCommandLine(const HostCommandLine&) = delete;
    HostCommandLine& operator=(const HostCommandLine&) = delete;

    /// Reads the command line. Gives the exit code when the program must end at once: 0 after
    /// `--help` or `--version`, which print on standard output; 2 for a bad command line, after one
    /// line on standard error.
    std::optional<int> parse(int argc, const char* const* argv);

    /// The options of the command line; the defaults before parse().
    const HostOptions& options() const { return m_options; }

private:
    std::optional<int> refuse(const std::string& sentence) const;

    CLI::App& m_app;
    HostOptions m_options;
};

}  // namespace DOVA::runtime
