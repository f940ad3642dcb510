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

/// The host that a program runs in: loads the module behind the toolkit's front classes, opens the
/// door for the browser, and owns the main loop. To be made before the first front object.
///
/// A program is single-threaded from its own point of view: toolkit events, page calls, timers and
/// posted calls all come on the thread that calls run(), one after the other. Only post() and
/// quit() may be called from other threads.
///
/// A call of the program that lets an exception escape is over; one line on standard error says
/// what it threw, and the loop goes on. For a handler of what the user does the module says it, on
/// the host's console; every other handler is called all the same.
///
/// A process has one host at a time, and the module starts once in the life of a process. The
/// constructor throws a StartError for a second host, and for one that would start the module
/// again.
class DOVA_RUNTIME_EXPORT Host {
public:
    /// Starts everything but the loop: the program's address is taken, pages wait until run().
    /// Throws StartError, with nothing left open, when an option is bad, the module or the page is
    /// missing, the token file cannot be used or the port cannot be had.
    explicit Host(const HostOptions& options);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    /// A host that never ran ends its module and its gateway here, without shutdown calls.
    ~Host();

    /// What to open in a browser. It holds the token: whoever has it drives the program.
    std::string address() const;

    /// Sets what is called for every page that opens the address: the place to make the dialogs and
    /// to show them. What an earlier page showed has been asked to close by then. Windows that were
    /// opened while no page was there, also before run(), are opened on the page after this call,
    /// unless it has closed or destroyed them. A page that comes back after a reload or a lost
    /// connection is not new. An empty callable takes it back.
    void onPage(std::function<void()> callable);

    /// Adds a call for the beginning of the shut-down, while everything is still in place; the
    /// calls come in the order in which they were added. They must not wait for the user.
    void onShutdown(std::function<void()> callable);

    /// Has the main loop make a call soon, after those posted before. Any thread. Calls that are
    /// still waiting when the host ends are dropped.
    void post(std::function<void()> callable);

    /// The same for a call that uses its owner, as a dialog that a thread works for: the main loop
    /// drops it when the owner is gone by then. The thread gets a copy of the Owner, which was made
    /// on the main thread, and may run on for longer than the owner, but not than the host.
    void post(const Owner& owner, std::function<void()> callable);

    /// Has the main loop make a call once, `delay` from now; a negative delay counts as none.
    /// Main thread.
    Timer after(std::chrono::milliseconds delay, std::function<void()> callable);
    /// The same for a call that uses its owner: dropped when the owner is gone by then.
    Timer after(const Owner& owner, std::chrono::milliseconds delay,
                std::function<void()> callable);

    /// Has the main loop call `callable` whenever `descriptor` (a terminal, pipe or socket) has
    /// something to read or its other side is gone: again and again until all of it is read. An
    /// empty callable takes back what was set for this descriptor, which stays the caller's, is not
    /// made non-blocking, and must be open until then or until the shut-down begins. Throws
    /// std::system_error when the descriptor cannot be waited for, as a regular file. Main thread.
    void watchInput(int descriptor, std::function<void()> callable);

    /// Serves until SIGINT, SIGTERM, SIGHUP (unless the program was started with that one ignored,
    /// as nohup does) or quit(), then shuts down in order: shutdown calls, module,
    /// pages (they are told that the program has ended), and whatever is left in the loop, for
    /// two seconds or so at the most. A second signal meanwhile ends the process on the spot.
    /// Gives the exit code: 0 after a signal, else that of quit(). To be called once.
    int run();

    /// Ends run(). The first call counts; one before run() makes run() shut down at once. Any
    /// thread.
    void quit(int exitCode = 0);

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

}  // namespace DOVA::runtime
