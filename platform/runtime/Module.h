#pragma once

#include <filesystem>

namespace DOVA::runtime {

/// The shared library that serves the toolkit's front classes: loaded by path, reached through the
/// names it exports, since nothing of the platform knows its headers. It stays loaded until the
/// process ends: the front objects that it served may outlive the host.
class Module {
public:
    /// Loads it and finds its entry points. Throws StartError.
    explicit Module(const std::filesystem::path& path);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    /// Terminates what was initialised.
    ~Module();

    /// Starts it, and has it ask whether the host is online: only then it listens to pages.
    void initialise();
    /// Ends it; once.
    void terminate();

private:
    using EntryPoint = void (*)();
    using Flag = bool (*)();

    EntryPoint m_initialise;
    EntryPoint m_terminate;
    Flag m_online;
    bool m_running = false;
};

}  // namespace DOVA::runtime
