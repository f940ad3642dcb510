#include <clocale>
#include <exception>
#include <iostream>

#include "LocalProgram.h"
#include "Options.h"
#include "ServedProgram.h"
#include "console/ScriptExit.h"

int main(int argc, char** argv) {
    // Texts are the user's; numbers stay those of the language.
    std::setlocale(LC_CTYPE, "");
    DOVA::console::Options options;
    if (const auto exitCode = DOVA::console::Options::parse(argc, argv, options)) {
        return *exitCode;
    }
    try {
        return options.isServed ? DOVA::console::ServedProgram(options).run()
                                : DOVA::console::LocalProgram(options).run();
    } catch (const DOVA::console::ScriptExit& exit) {
        return exit.exitCode;
    } catch (const std::exception& error) {
        std::cerr << "dova-host: " << error.what() << "\n";
        return 1;
    }
}
