// A script parses an object.

#include "JsonReference.h"
#include "scripting/JSONObjectFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    reference.require(DOVA::web::objectFromJSON(reference.text()), reference.document().object());
    return 0;
}
