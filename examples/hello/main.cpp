#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>

#include "runtime/Host.h"
#include "runtime/HostCommandLine.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"

/// Asks for a name and greets.
struct HelloDialog : DOVA::DVDialog2 {
    HelloDialog() {
        setTitle(u"Hello");
        setLayout(&rows);
        rows.addWidget(&question);
        rows.addWidget(&name);
        rows.addWidget(&greet);
        rows.addWidget(&greeting);
        question.setBuddy(&name);
        greet.setDefault(true);
        greet.onClick([this] { greeting.setText(u"Hello, " + name.text() + u"!"); });
        onCloseRequest([this] { close(); });
    }

    DOVA::DVBoxLayout2 rows;
    DOVA::DVText2 question{this, u"Your name"};
    DOVA::DVEdit2 name{this};
    DOVA::DVButton2 greet{this, u"Greet"};
    DOVA::DVText2 greeting{this};
};

int main(int argc, char** argv) try {
    CLI::App app("Greets whoever tells a name.", "hello");
    DOVA::runtime::HostCommandLine commandLine(app);
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return *exitCode;
    }
    DOVA::runtime::Host host(commandLine.options());
    std::unique_ptr<HelloDialog> dialog;
    host.onPage([&] {
        dialog = std::make_unique<HelloDialog>();
        dialog->show();
    });
    std::cout << host.address() << std::endl;
    return host.run();
} catch (const std::exception& error) {
    std::cerr << "hello: " << error.what() << "\n";
    return 1;
}
