#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "runtime/Export.h"
#include "runtime/HostOptions.h"
#include "runtime/Owner.h"
#include "runtime/Timer.h"

namespace DOVA::runtime {

/// The host in which a program runs: loads the module behind the toolkit's front classes, opens the
/// gateway for the browser, and owns the main loop. Make it before the first front object.
///
/// All calls of the program come on the thread that calls run(), one after the other: toolkit
/// events, page calls, timers and posted calls. Only post() and quit() may be called from other
/// threads.
///
/// When a call of the program throws, one line in the log says what, and the loop goes on. When a
/// handler of what the user does throws, the line comes on the host's console, and the other
/// handlers are called all the same.
///
/// A process has one host at a time, and the module starts once in a process. The constructor
/// throws a StartError for a second host, and for one that would start the module again.
class DOVA_RUNTIME_EXPORT Host {
public:
    /// Starts everything but the loop: the program has its address, pages wait until run(). Throws
    /// StartError, with nothing left open, when an option is bad, the module or the page is
    /// missing, the token file cannot be used or the port is not free.
    explicit Host(const HostOptions& options);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    /// A host that never ran ends its module and its gateway here, without shutdown calls.
    ~Host();

    /// What to open in a browser. It holds the token: who has it drives the program.
    std::string address() const;

    /// Sets what is called for every page that opens the address: there the program makes its
    /// dialogs and shows them. The windows of an earlier page were asked to close before. After
    /// this call the page also gets the windows that were opened while no page was there, before
    /// run() too, unless this call has closed or destroyed them. A page that comes back after a
    /// reload or a lost connection is not new. An empty callable takes it back.
    void onPage(std::function<void()> callable);

    /// Adds a call for the beginning of the shut-down, while everything is still in place. The
    /// calls come in the order in which they were added, and must not wait for the user.
    void onShutdown(std::function<void()> callable);

    /// Makes the main loop run a call soon, after those posted before. Any thread. Calls that still
    /// wait when the host ends are dropped.
    void post(std::function<void()> callable);

    /// The same for a call that uses its owner, such as the dialog for which a thread works: the
    /// main loop drops it when the owner is gone by then. Make the Owner on the main thread and
    /// give the thread a copy. The thread may outlive the owner, but not the host.
    void post(const Owner& owner, std::function<void()> callable);

    /// Makes the main loop run a call once, `delay` from now. A negative delay counts as none, one
    /// of more than a year as a year. Main thread.
    Timer after(std::chrono::milliseconds delay, std::function<void()> callable);
    /// The same for a call that uses its owner: dropped when the owner is gone by then.
    Timer after(const Owner& owner, std::chrono::milliseconds delay,
                std::function<void()> callable);

    /// Makes the main loop run `callable` while `descriptor` (a terminal, pipe or socket) has
    /// something to read or its other side is gone: again and again until all is read. A second
    /// call for the same descriptor replaces the first, an empty callable takes it back. The
    /// descriptor stays the caller's, is not made non-blocking, and must be open until the watch is
    /// taken back or the shut-down begins. Throws std::system_error for one that cannot be waited
    /// for, such as a regular file. Main thread.
    void watchInput(int descriptor, std::function<void()> callable);

    /// Serves until SIGINT, SIGTERM, SIGHUP (unless the program was started with that one ignored,
    /// as by nohup) or quit(). Then makes the shutdown calls, ends the module, tells the pages that
    /// the program has ended, and finishes what is left in the loop, for two seconds or so at the
    /// most. A second signal meanwhile ends the process on the spot. Gives the exit code: 0 after a
    /// signal, else that of quit(). Call it once.
    int run();

    /// Ends run(). The first call counts; after one before run(), run() shuts down at once. Any
    /// thread.
    void quit(int exitCode = 0);

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

}  // namespace DOVA::runtime
