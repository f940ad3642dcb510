// A script inserts a parsed text before, between and behind elements.

#include "JsonReference.h"
#include "scripting/JSONArrayFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    QJsonArray array{1};
    DOVA::web::arrayInsertFromJSON(array, 0, reference.text());
    DOVA::web::arrayInsertFromJSON(array, 1, reference.text());
    DOVA::web::arrayInsertFromJSON(array, 3, reference.text());
    const QJsonValue element = reference.element();
    reference.require(array, QJsonArray{element, element, 1, element}, 3);
    return 0;
}
