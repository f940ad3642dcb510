// A script looks for a parsed text.

#include "JsonReference.h"
#include "scripting/JSONArrayFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    const QJsonArray array{1, reference.element()};
    reference.require(DOVA::web::arrayContainsFromJSON(array, reference.text()), true);
    return 0;
}
