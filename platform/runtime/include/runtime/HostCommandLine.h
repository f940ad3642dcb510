#pragma once

#include <optional>

#include "runtime/Export.h"
#include "runtime/HostOptions.h"

namespace CLI {
class App;
}

namespace DOVA::runtime {

/// The options that every served program takes, added to the program's own command line:
/// `--port N`, `--bind ADDRESS`, `--allow-remote`, `--host NAME`, `--origin URL`,
/// `--token-file FILE`, `--theme FILE`, `--log-level LEVEL`, and `--version`, which tells the
/// version of this library unless `app` has a version flag; beside the `--help` that CLI::App
/// brings along.
class DOVA_RUNTIME_EXPORT HostCommandLine {
public:
    /// Adds the options; `app` and this object must stay where they are until parse() is done. The
    /// name of `app` begins its error lines.
    explicit HostCommandLine(CLI::App& app);
    HostCommandLine(const HostCommandLine&) = delete;
    HostCommandLine& operator=(const HostCommandLine&) = delete;

    /// Reads the command line. Gives the exit code when the program is to end at once: 0 after
    /// `--help` or `--version`, whose text goes to standard output; 2 for a bad command line, of
    /// which one line on standard error tells.
    std::optional<int> parse(int argc, const char* const* argv);

    /// What was asked for; the defaults before parse().
    const HostOptions& options() const { return m_options; }

private:
    std::optional<int> refuse(const std::string& sentence) const;

    CLI::App& m_app;
    HostOptions m_options;
};

}  // namespace DOVA::runtime
