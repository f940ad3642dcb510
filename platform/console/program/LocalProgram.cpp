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

/// While it lives, SIGINT comes only in wait().
class KeyOrSignal {
public:
    KeyOrSignal() {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGINT, &action, &m_action);
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGINT);
        sigprocmask(SIG_BLOCK, &blocked, &m_mask);
    }
    KeyOrSignal(const KeyOrSignal&) = delete;
    KeyOrSignal& operator=(const KeyOrSignal&) = delete;
    ~KeyOrSignal() {
        sigprocmask(SIG_SETMASK, &m_mask, nullptr);
        sigaction(SIGINT, &m_action, nullptr);
    }

    /// Waits; false when it was a signal.
    bool wait() const {
        pollfd input{STDIN_FILENO, POLLIN, 0};
        return ppoll(&input, 1, nullptr, &m_mask) > 0;
    }

private:
    struct sigaction m_action {};
    sigset_t m_mask;
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

/// For a prompt that no person sits at: entries are lines, or several that belong together.
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
    for (prompt.show(); !isOver;) {
        {
            const KeyOrSignal input;
            while (!isOver && !isWhole) {
                input.wait() ? prompt.readKey() : prompt.discard();
            }
        }
        if (std::exchange(isWhole, false)) {
            m_session.enter(entry);
            prompt.show();
        }
    }
    std::cout << std::endl;
}

}  // namespace DOVA::console
