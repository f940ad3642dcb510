// Programs that change themselves in their handlers cost twenty times as much as others: of sixteen
// inputs for a channel one gets such a program.

#include <cstddef>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t largest);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t largest, unsigned seed) {
    const std::size_t mutated = LLVMFuzzerMutate(data, size, largest);
    if (mutated > 0 && seed % 16 != 0) {
        data[0] = 0;
    }
    return mutated;
}
