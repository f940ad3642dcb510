// A script puts a parsed text under a key.

#include "JsonReference.h"
#include "scripting/JSONObjectFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DOVA::fuzz::JsonReference reference(data, size);
    QJsonObject object{{"a", 1}};
    DOVA::web::objectInsertFromJSON(object, u"a", reference.text());
    reference.require(object, QJsonObject{{"a", reference.element()}});
    return 0;
}
