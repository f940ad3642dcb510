#include "toolkit/DVComboBox2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

namespace {

constexpr int s_atTheEnd = -1;
constexpr int s_all = -1;

}  // namespace

DVComboBox2::DVComboBox2(DVObject* parent, const std::vector<std::u16string>& items)
    : DVWidget2(std::make_unique<DVComboBox2Emitters>()) {
    if (factory()) {
        factory()->createComboBox2.emit(this, emitters(), parent);
    }
    if (parent) {
        setParent(parent);
    }
    if (!items.empty()) {
        addItems(items);
    }
}

DVComboBox2::~DVComboBox2() {
    dismantle();
}

void DVComboBox2::addItem(const std::u16string& item) {
    addItems({item});
}

void DVComboBox2::addItems(const std::vector<std::u16string>& items) {
    insertItems(s_atTheEnd, items);
}

void DVComboBox2::insertItems(int index, const std::vector<std::u16string>& items) {
    emitters()->insertItemsU.emit(index, items, std::string());
}

void DVComboBox2::removeItem(int index) {
    if (index >= 0) {
        emitters()->removeItems.emit(index);
    }
}

void DVComboBox2::clear() {
    emitters()->removeItems.emit(s_all);
}

std::vector<std::u16string> DVComboBox2::items() const {
    return emitters()->getItemsU.emit();
}

int DVComboBox2::count() const {
    return static_cast<int>(items().size());
}

void DVComboBox2::setSelection(int index) {
    emitters()->setSelection.emit(index);
}

int DVComboBox2::selection() const {
    return emitters()->getSelection.emit();
}

std::u16string DVComboBox2::selectedItem() const {
    const std::vector<std::u16string> all = items();
    const int index = selection();
    return index >= 0 && index < static_cast<int>(all.size()) ? all[static_cast<std::size_t>(index)]
                                                              : std::u16string();
}

void DVComboBox2::setEditable(bool editable) {
    emitters()->setEditable.emit(editable);
}

}  // namespace DOVA
