// What a page says about the objects of its windows: each line of the input is one text, on the
// channel of the second window if the line begins with "2", else on that of the first.

#include "FuzzProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using DOVA::fuzz::FuzzProgram;
    DOVA::fuzz::run({data, size}, "0123456789abcdef",
                    [](FuzzProgram& program, const std::string& line) {
                        const bool second = !line.empty() && line[0] == '2';
                        program.say(second ? "/dova2/web/page/$8" : "/dova2/web/page/$0",
                                    second ? line.substr(1) : line);
                    });
    return 0;
}
