#include <clocale>
#include <cstdio>
#include <exception>
#include <iostream>

#include "LocalProgram.h"
#include "Options.h"
#include "ServedProgram.h"
#include "console/ScriptExit.h"

namespace {

using namespace DOVA::console;

int run(const Options& options) try {
    return options.isServed ? ServedProgram(options).run() : LocalProgram(options).run();
} catch (const ScriptExit& exit) {
    return exit.exitCode;
}

}  // namespace

int main(int argc, char** argv) try {
    // Texts are the user's; numbers stay those of the language.
    std::setlocale(LC_CTYPE, "");
    Options options;
    if (const auto exitCode = Options::parse(argc, argv, options)) {
        return *exitCode;
    }
    const int exitCode = run(options);
    if (exitCode == 0 && std::ferror(stdout) != 0) {
        std::cerr << "dova-host: cannot write to standard output\n";
        return 1;
    }
    return exitCode;
} catch (const std::exception& error) {
    std::cerr << "dova-host: " << error.what() << "\n";
    return 1;
}
