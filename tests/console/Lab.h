#pragma once

#include <functional>

#include "Tally.h"
#include "host/ribo/COSNamespace.h"

namespace DOVA::test {

/// Namespaces of the host to try scripts on, there as long as this lives: "lab" with functions,
/// inside it "lab.inner" with classes.
class Lab {
public:
    Lab();
    Lab(const Lab&) = delete;
    Lab& operator=(const Lab&) = delete;
    ~Lab();

    /// Adds a namespace without members inside "lab".
    static void addInner(const char* name);
    static void remove(const char* fullName);
};

}  // namespace DOVA::test
