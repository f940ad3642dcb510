#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace jsonpad {

/// A text that is not the JSON that is asked for. `what()` is one sentence that begins with
/// "line L, column C: "; both count from 1, the column in characters.
class JsonError : public std::runtime_error {
public:
    /// `offset` is the byte of `text` where the fault shows; everything before it is valid UTF-8.
    JsonError(std::string_view text, std::size_t offset, const std::string& sentence);
};

}  // namespace jsonpad
