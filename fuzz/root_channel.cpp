// What comes on the root channel: each line of the input is one text, and after each a window is
// opened for the client that the text may have brought.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::Input input(data, size);
    DOVA::fuzz::FuzzProgram program(input.manners);
    std::size_t opened = 0;
    for (const std::string& line : input.lines) {
        program.say("/dova2/web", line);
        if (++opened < 8) {
            program.open();
        }
    }
    program.requireWorking();
    return 0;
}
