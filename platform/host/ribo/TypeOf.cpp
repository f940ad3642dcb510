#include "host/ribo/factory/TypeOf.h"

#include "host/Error.h"
#include "host/ribo/COSNamespace.h"

namespace ribo::factory {

std::vector<std::u16string> TypeOf<std::vector<std::u16string>>::fromHost(const kaArray* value) {
    if (kaIsChar(value)) {
        return {kaGetString(value)};
    }
    std::vector<std::u16string> texts(kaGetNumberOfElements(value));
    for (std::size_t index = 0; index < texts.size(); ++index) {
        texts[index] = kaGetString(kaGetCell(value, index));
    }
    return texts;
}

host::ArrayPointer TypeOf<std::vector<std::u16string>>::toHost(
    const std::vector<std::u16string>& value) {
    std::vector<kaArray*> cells;
    cells.reserve(value.size());
    for (const std::u16string& text : value) {
        cells.push_back(kaCreateString(text));
    }
    return host::ArrayPointer(
        kaCreateCellMatrix(cells.empty() ? 0 : 1, cells.size(), cells.data()));
}

std::shared_ptr<Instance> makeInstance(InternedString fullName) {
    if (ClassPointer found = COSNamespace::getClass(fullName)) {
        return std::make_shared<Instance>(std::move(found));
    }
    throw host::Error("ribo:UnknownClass", "There is no class \"" + fullName.text() + "\".");
}

}  // namespace ribo::factory
