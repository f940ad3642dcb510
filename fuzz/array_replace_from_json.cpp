// A script replaces an element by a parsed text.

#include "JsonReference.h"
#include "scripting/JSONArrayFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    QJsonArray array{1, QJsonArray{2}};
    DOVA::web::arrayReplaceFromJSON(array, 1, reference.text());
    reference.require(array, QJsonArray{1, reference.element()});
    return 0;
}
