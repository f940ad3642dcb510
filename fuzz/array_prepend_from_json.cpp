// A script prepends a parsed text.

#include "JsonReference.h"
#include "scripting/JSONArrayFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    QJsonArray array{1};
    DOVA::web::arrayPrependFromJSON(array, reference.text());
    reference.require(array, QJsonArray{reference.element(), 1});
    return 0;
}
