#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>

#include "GalleryDialog.h"
#include "ImageFolder.h"
#include "runtime/Host.h"
#include "runtime/HostCommandLine.h"

namespace {

int serve(DOVA::runtime::HostOptions options) {
    options.applicationRoot = gallery::imageFolder();
    DOVA::runtime::Host host(options);
    std::unique_ptr<gallery::GalleryDialog> dialog;
    host.onPage([&] {
        dialog = std::make_unique<gallery::GalleryDialog>(host);
        dialog->onCloseRequest([&dialog] { dialog.reset(); });
        dialog->show();
    });
    std::cout << host.address() << std::endl;
    return host.run();
}

}  // namespace

int main(int argc, char** argv) try {
    CLI::App app("Shows every kind of widget in a browser.", "gallery");
    DOVA::runtime::HostCommandLine commandLine(app);
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return *exitCode;
    }
    return serve(commandLine.options());
} catch (const std::exception& error) {
    std::cerr << "gallery: " << error.what() << "\n";
    return 1;
}
