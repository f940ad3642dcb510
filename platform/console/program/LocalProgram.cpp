#include "LocalProgram.h"

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>
#include <utility>

#include "Prompt.h"
#include "StandardInput.h"

namespace DOVA::console {

namespace {

/// Waits for the user at the prompt: a key, or SIGINT, which ends nothing while this lives.
class KeyOrSignal {
public:
    KeyOrSignal() {
        s_isSignalled = 0;
        struct sigaction action {};
        action.sa_handler = [](int) { s_isSignalled = 1; };
        sigaction(SIGINT, &action, &m_before);
    }
    KeyOrSignal(const KeyOrSignal&) = delete;
    KeyOrSignal& operator=(const KeyOrSignal&) = delete;
    ~KeyOrSignal() { sigaction(SIGINT, &m_before, nullptr); }

    /// True for a key.
    bool wait() const {
        sigset_t blocked, before;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGINT);
        // Between the look at the flag and the wait no signal may come.
        sigprocmask(SIG_BLOCK, &blocked, &before);
        pollfd input{STDIN_FILENO, POLLIN, 0};
        const bool isKey = !s_isSignalled && ppoll(&input, 1, nullptr, &before) > 0;
        sigprocmask(SIG_SETMASK, &before, nullptr);
        s_isSignalled = isKey ? s_isSignalled : 0;
        return isKey;
    }

private:
    static inline volatile std::sig_atomic_t s_isSignalled = 0;
    struct sigaction m_before {};
};

}  // namespace

LocalProgram::LocalProgram(const Options& options)
    : m_options(options), m_session([](const std::string& text) { std::cerr << text; }) {
    if (options.loadModule) {
        m_module.load({});
    }
}

int LocalProgram::run() {
    const bool readsScript = StandardInput::isScript(m_options);
    if (!m_session.run(m_options, readsScript ? StandardInput::read() : std::string())) {
        return 1;
    }
    const bool ranSomething = m_options.script || !m_options.texts.empty() || readsScript;
    if (ranSomething && !m_options.isInteractive) {
        return 0;
    }
    StandardInput::isTerminal() ? runPrompt() : readLines();
    return 0;
}

/// For a prompt that no user sits at: entries are lines, or several that belong together.
void LocalProgram::readLines() {
    std::string entry;
    for (std::string line; std::getline(std::cin, line);) {
        entry += line;
        if (m_session.console().isIncomplete(entry)) {
            entry += '\n';
        } else {
            m_session.enter(std::exchange(entry, {}));
        }
    }
    if (!entry.empty()) {
        m_session.enter(entry);
    }
}

void LocalProgram::runPrompt() {
    std::string entry;
    bool isWhole = false;
    bool isOver = false;
    // Entries run between the keys, not inside the line editor, through which nothing may be
    // thrown.
    Prompt prompt(m_session.console(), [&](const std::string* text) {
        entry = text != nullptr ? *text : std::string();
        isWhole = text != nullptr;
        isOver = text == nullptr;
    });
    const KeyOrSignal input;
    prompt.show();
    while (!isOver) {
        input.wait() ? prompt.readKey() : prompt.discard();
        if (std::exchange(isWhole, false)) {
            m_session.enter(entry);
            prompt.show();
        }
    }
    std::cout << std::endl;
}

}  // namespace DOVA::console
