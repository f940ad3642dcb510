// What a page says about the objects of its windows: each line of the input is one text, on the
// channel of the second window if the line begins with "2", else on that of the first.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::Input input(data, size);
    DOVA::fuzz::FuzzProgram program(input.manners);
    for (const std::string& line : input.lines) {
        const bool second = !line.empty() && line[0] == '2';
        // The plain objects count from 0: the first window with its seven, then the second.
        program.say(second ? "/dova2/web/page/$8" : "/dova2/web/page/$0",
                    second ? line.substr(1) : line);
    }
    program.requireWorking();
    return 0;
}
