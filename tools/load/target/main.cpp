#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "../Ledger.h"
#include "../TargetWindow.h"
#include "runtime/Host.h"
#include "runtime/HostCommandLine.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"

namespace {

using DOVA::load::Action;
using DOVA::load::Ledger;

/// What was handled of each series; it outlives the pages.
using Ledgers = std::map<std::string, Ledger>;

std::u16string widen(const std::string& text) {
    return {text.begin(), text.end()};
}

/// An action holds nothing but ASCII; every other character becomes one that no action has.
std::string narrow(const std::u16string& text) {
    std::string narrowed;
    for (const char16_t unit : text) {
        narrowed += unit < 128 ? static_cast<char>(unit) : ' ';
    }
    return narrowed;
}

/// Counts the actions that are typed, and says after each what was handled.
struct TargetDialog : DOVA::DVDialog2 {
    explicit TargetDialog(Ledgers& ledgers) {
        setTitle(widen(DOVA::load::TargetWindow::s_title));
        setLayout(&rows);
        rows.addWidget(&field);
        rows.addWidget(&handled);
        field.onEdit([this, &ledgers] {
            if (const auto action = Action::parse(narrow(field.text()))) {
                handled.setText(widen(ledgers[action->series].handle(*action).text()));
            }
        });
        onCloseRequest([this] { close(); });
    }

    DOVA::DVBoxLayout2 rows;
    DOVA::DVEdit2 field{this};
    DOVA::DVText2 handled{this};
};

}  // namespace

int main(int argc, char** argv) try {
    CLI::App app("Counts what dova-load does, and says what came once, in order.",
                 "dova-load-target");
    DOVA::runtime::HostCommandLine commandLine(app);
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return *exitCode;
    }
    DOVA::runtime::Host host(commandLine.options());
    Ledgers ledgers;
    std::unique_ptr<TargetDialog> dialog;
    host.onPage([&] {
        dialog = std::make_unique<TargetDialog>(ledgers);
        dialog->show();
    });
    std::cout << host.address() << std::endl;
    return host.run();
} catch (const std::exception& error) {
    std::cerr << "dova-load-target: " << error.what() << "\n";
    return 1;
}
