#include "StandardInput.h"

#include <unistd.h>

#include <iostream>
#include <iterator>

namespace DOVA::console {

bool StandardInput::isTerminal() {
    return ::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0;
}

bool StandardInput::isScript(const Options& options) {
    if (options.script) {
        return *options.script == "-";
    }
    return options.texts.empty() && !options.isInteractive && !isTerminal();
}

std::string StandardInput::read() {
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

}  // namespace DOVA::console
