// A script parses an array.

#include "JsonReference.h"
#include "scripting/JSONArrayFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    reference.require(DOVA::web::arrayFromJSON(reference.text()), reference.document().array());
    return 0;
}
