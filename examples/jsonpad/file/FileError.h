#pragma once

#include <stdexcept>

namespace jsonpad {

/// A file that cannot be read or written. `what()` is one sentence that names the file.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace jsonpad
