#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "Document.h"
#include "Jsonpad.h"
#include "json/JsonFile.h"
#include "json/JsonSchema.h"
#include "runtime/Host.h"
#include "runtime/HostCommandLine.h"

namespace {

void tellWhatIsLost(const jsonpad::Document& document, const std::string& path) {
    if (document.isModified()) {
        std::cerr << "jsonpad: " + path + " was not saved: what was edited in " +
                         document.names(document.modified()) + " is lost\n";
    }
}

int edit(const std::string& path, const jsonpad::JsonSchema& schema,
         const DOVA::runtime::HostOptions& options) {
    jsonpad::Document document(jsonpad::JsonFile::load(path));
    DOVA::runtime::Host host(options);
    jsonpad::Jsonpad jsonpad(document, schema, path);
    host.onPage([&] { jsonpad.show(); });
    host.onShutdown([&] { tellWhatIsLost(document, path); });
    std::cout << host.address() << std::endl;
    return host.run();
}

}  // namespace

int main(int argc, char** argv) try {
    CLI::App app("Edits a JSON file, which holds an object, in a browser.", "jsonpad");
    DOVA::runtime::HostCommandLine commandLine(app);
    std::string path;
    app.add_option("FILE", path, "The JSON file; it must hold an object")->required();
    std::string schema;
    app.add_option("--schema", schema,
                   "A JSON Schema; texts that it has an enum for are chosen from a list");
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return *exitCode;
    }
    const bool hasSchema = app.count("--schema") > 0;
    return edit(path, hasSchema ? jsonpad::JsonSchema::load(schema) : jsonpad::JsonSchema(),
                commandLine.options());
} catch (const std::exception& error) {
    std::cerr << "jsonpad: " << error.what() << "\n";
    return 1;
}
