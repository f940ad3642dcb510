#pragma once

#include <filesystem>

#include "runtime/Export.h"

namespace DOVA::runtime {

/// The shared library that serves the toolkit's front classes. It is loaded by path and reached
/// through the names it exports, because nothing of the platform knows its headers. It stays loaded
/// until the process ends: front objects that it served may outlive the host. Main thread.
class DOVA_RUNTIME_EXPORT Module {
public:
    /// Loads the module and finds its entry points. An empty path stands for the value of the
    /// environment variable DOVA_WEB_MODULE, else for "libdova2_web.so" beside this library. Throws
    /// StartError, also for a module that was started in this process before.
    explicit Module(const std::filesystem::path& path);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    /// As terminate().
    ~Module();

    /// Starts the module. Call it once.
    void initialise();
    /// Makes the module ask whether the host is online, and answers yes from now on. The module
    /// listens to pages only after that.
    void goOnline();
    /// Ends the module; one that was not started, or has ended, is left alone.
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
