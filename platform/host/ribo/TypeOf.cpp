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
    std::vector<host::ArrayPointer> texts(value.size());
    std::vector<kaArray*> cells(value.size());
    for (std::size_t index = 0; index < value.size(); ++index) {
        texts[index].reset(kaCreateString(value[index]));
        cells[index] = texts[index].get();
    }
    host::ArrayPointer row(kaCreateCellMatrix(cells.empty() ? 0 : 1, cells.size(), cells.data()));
    for (host::ArrayPointer& text : texts) {
        static_cast<void>(text.release());  // the row's by now
    }
    return row;
}

std::shared_ptr<Instance> makeInstance(InternedString fullName) {
    if (ClassPointer found = COSNamespace::getClass(fullName)) {
        return std::make_shared<Instance>(std::move(found));
    }
    throw host::Error("ribo:UnknownClass", "There is no class \"" + fullName.text() +
                                               "\" (any more): what had it was unloaded.");
}

}  // namespace ribo::factory
