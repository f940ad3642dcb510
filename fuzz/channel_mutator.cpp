// Programs that change themselves in their handlers cost many times as much as others: of 32 inputs
// for a channel one gets such a program.

#include <cstddef>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t largest);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t largest, unsigned seed) {
    const std::size_t mutated = LLVMFuzzerMutate(data, size, largest);
    if (mutated > 0) {
        data[0] = seed % 32 == 0 ? static_cast<std::uint8_t>(seed / 32) : 0;
    }
    return mutated;
}
