#pragma once

#include <filesystem>

#include "runtime/Export.h"

namespace DOVA::runtime {

/// The shared library that serves the toolkit's front classes: loaded by path, reached through the
/// names it exports, since nothing of the platform knows its headers. It stays loaded until the
/// process ends: the front objects that it served may outlive the host. Main thread.
class DOVA_RUNTIME_EXPORT Module {
public:
    /// Loads it and finds its entry points. An empty path means the value of the environment
    /// variable DOVA_WEB_MODULE, else "libdova2_web.so" beside this library. Throws StartError,
    /// also for a module that was started in this process before.
    explicit Module(const std::filesystem::path& path);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    /// Terminates what was initialised.
    ~Module();

    /// Starts it. The module itself starts once in the life of a process.
    void initialise();
    /// Makes the module ask whether the host is online, and answers yes from now on. The module
    /// listens to pages only after that.
    void goOnline();
    /// Ends it; once.
    void terminate();

private:
    using EntryPoint = void (*)();
    using Flag = bool (*)();

    void* m_handle;
    EntryPoint m_initialise;
    EntryPoint m_terminate;
    Flag m_online;
    bool m_running = false;
};

}  // namespace DOVA::runtime
