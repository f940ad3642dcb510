// What a page says on its own channel: each line of the input is one text.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using DOVA::fuzz::FuzzProgram;
    DOVA::fuzz::run({data, size}, "259", [](FuzzProgram& program, const std::string& line) {
        program.say("/dova2/web/page", line);
    });
    return 0;
}
