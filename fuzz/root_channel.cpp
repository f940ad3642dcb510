// What comes on the root channel: each line of the input is one text, and after each a window is
// opened for the client that the text may have brought, or is brought to it.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using DOVA::fuzz::FuzzProgram;
    DOVA::fuzz::run({data, size}, "259", [](FuzzProgram& program, const std::string& line) {
        program.say("/dova2/web", line);
        program.open();
    });
    return 0;
}
