#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "Document.h"
#include "JsonFile.h"
#include "Jsonpad.h"
#include "runtime/Host.h"
#include "runtime/HostCommandLine.h"

namespace {

void tellWhatIsLost(const jsonpad::Document& document, const std::string& path) {
    if (document.isModified()) {
        std::cerr << "jsonpad: " + path + " was not saved: what was edited in " +
                         document.names(document.modified()) + " is lost\n";
    }
}

int edit(const std::string& path, const DOVA::runtime::HostOptions& options) {
    jsonpad::Document document(jsonpad::JsonFile::load(path));
    DOVA::runtime::Host host(options);
    jsonpad::Jsonpad jsonpad(document, path);
    host.onPage([&] { jsonpad.show(); });
    host.onShutdown([&] { tellWhatIsLost(document, path); });
    std::cout << host.address() << std::endl;
    return host.run();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Edits the members of a JSON object in a browser.", "jsonpad");
    DOVA::runtime::HostCommandLine commandLine(app);
    std::string path;
    app.add_option("FILE", path, "The JSON file; it must hold an object")->required();
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return *exitCode;
    }
    try {
        return edit(path, commandLine.options());
    } catch (const std::exception& error) {
        std::cerr << "jsonpad: " << error.what() << "\n";
        return 1;
    }
}
