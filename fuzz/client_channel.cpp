// What a page says on its own channel: each line of the input is one text.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::Input input(data, size);
    DOVA::fuzz::FuzzProgram program(input.manners);
    for (const std::string& line : input.lines) {
        program.say("/dova2/web/page", line);
    }
    program.requireWorking();
    return 0;
}
