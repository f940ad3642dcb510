#include "ServedProgram.h"

#include <unistd.h>

#include <iostream>

#include "StandardInput.h"
#include "host/Console.h"
#include "host/Utf8.h"
#include "host/ribo/factory/Adapters.h"

namespace DOVA::console {

namespace {

runtime::HostOptions withoutModule(runtime::HostOptions options) {
    options.loadModule = false;
    return options;
}

std::vector<ribo::factory::RiboMethod> functions(ModuleSlot& module, const runtime::Host& host) {
    auto result = module.functions();
    result.push_back(ribo::factory::makeMethod("address", {true, false},
                                               [&host] { return host::fromUtf8(host.address()); }));
    return result;
}

}  // namespace

ServedProgram::ServedProgram(const Options& options)
    : m_options(options),
      m_host(withoutModule(options.host)),
      m_namespace(functions(m_module, m_host)),
      // Printed, so that the dialog has them as well.
      m_session([](const std::string& text) { host::printText(text); }) {
    if (options.loadModule) {
        m_module.load({});
    }
    m_host.onPage([this] { openDialog(); });
    m_host.onShutdown([this] {
        m_prompt.reset();
        m_dialog.reset();
        m_module.unload();
    });
}

int ServedProgram::run() {
    const std::string input =
        StandardInput::isScript(m_options) ? StandardInput::read() : std::string();
    std::cout << m_host.address() << std::endl;
    m_host.post([this, input] { runScripts(input); });
    return m_host.run();
}

template <class Call>
void ServedProgram::attempt(const Call& call) {
    try {
        call();
    } catch (const ScriptExit& exit) {
        m_host.quit(exit.exitCode);
    }
}

void ServedProgram::runScripts(const std::string& input) {
    attempt([&] {
        if (!m_session.run(m_options, input)) {
            m_host.quit(1);
        } else if (StandardInput::isTerminal()) {
            startPrompt();
        }
    });
}

void ServedProgram::startPrompt() {
    m_prompt = std::make_unique<Prompt>(
        m_session.console(), [this](const std::string* entry) { enterFromPrompt(entry); });
    m_prompt->show();
    m_host.watchInput(STDIN_FILENO, [this] { m_prompt->readKey(); });
}

void ServedProgram::enterFromPrompt(const std::string* entry) {
    if (entry == nullptr) {
        m_host.quit();
        return;
    }
    // Not inside the line editor, through which nothing may be thrown.
    m_host.post([this, text = *entry] {
        attempt([&] { m_session.enter(text); });
        if (m_prompt) {
            m_prompt->show();
        }
    });
}

void ServedProgram::enterFromDialog(const std::string& line) {
    if (m_prompt) {
        m_prompt->hide();
    }
    host::printText("> " + line + "\n");
    attempt([&] { m_session.enter(line); });
    if (m_prompt) {
        m_prompt->show();
    }
}

void ServedProgram::openDialog() {
    m_dialog =
        std::make_unique<ConsoleDialog>([this](const std::string& line) { enterFromDialog(line); });
    m_dialog->showOutput(m_output.text());
    m_dialog->show();
}

void ServedProgram::showOutputSoon() {
    // Once for all that a script prints in one go.
    if (!m_isShowingSoon.exchange(true)) {
        m_host.post([this] {
            m_isShowingSoon = false;
            if (m_dialog) {
                m_dialog->showOutput(m_output.text());
            }
        });
    }
}

}  // namespace DOVA::console
