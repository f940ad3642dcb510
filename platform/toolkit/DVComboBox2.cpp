#include "toolkit/DVComboBox2.h"

#include "Implementation.h"

namespace DOVA {

namespace {

constexpr int s_atTheEnd = -1;
constexpr int s_all = -1;
constexpr int s_none = -1;

}  // namespace

DVComboBox2::DVComboBox2(DVObject* parent, const std::vector<std::u16string>& items)
    : DVWidget2(std::make_unique<DVComboBox2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createComboBox2, this);
    if (!items.empty()) {
        addItems(items);
    }
    judge();
}

void DVComboBox2::judge() {
    WIRO::connect(m_selection, [this](const DVComboBoxSelectEvent2& event) { judgeChoice(event); });
    const auto judgeText = [this](const DVComboBoxEditEvent2& event) {
        if (admit(&event)) {
            m_ownChoice = s_reported;
            noteText(event.text().empty());
        }
    };
    WIRO::connect(m_edit, judgeText);
    WIRO::connect(m_editFinished, judgeText);
}

// The number of no item stays where it is: the items that the user saw may be gone, and the display
// then shows no choice either.
void DVComboBox2::judgeChoice(const DVComboBoxSelectEvent2& event) {
    const bool isAdmitted = admit(&event);
    const bool isKnown = emitters()->getItemsU.numberOfConnections() > 0;
    m_isAstray = isAdmitted && isKnown && !hasItem(event.index());
    if (m_isAstray || (isAdmitted && event.index() == m_ownChoice)) {
        Admission::judge(&event, false);
    }
    m_ownChoice = isAdmitted ? s_reported : m_ownChoice;
    m_isEmptied = m_isEmptied && !isAdmitted;
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

void DVComboBox2::removeItem(int index) {
    if (index >= 0) {
        emitters()->removeItems.emit(index);
    }
}

void DVComboBox2::clear() {
    emitters()->removeItems.emit(s_all);
}

int DVComboBox2::count() const {
    return static_cast<int>(items().size());
}

void DVComboBox2::setSelection(int index) {
    m_isAstray = false;
    m_ownChoice = index;
    emitters()->setSelection.emit(index);
    if (isEditable()) {
        takeItem();
    }
}

int DVComboBox2::selection() const {
    const int index = emitters()->getSelection.emit();
    return m_isAstray && !hasItem(index) ? s_none : index;
}

std::u16string DVComboBox2::selectedItem() const {
    const std::vector<std::u16string> all = items();
    const int index = selection();
    return index >= 0 && index < static_cast<int>(all.size()) ? all[static_cast<std::size_t>(index)]
                                                              : std::u16string();
}

void DVComboBox2::setEditable(bool editable) {
    emitters()->setEditable.emit(editable);
    if (editable && text().empty()) {
        takeItem();
    }
}

bool DVComboBox2::isEditable() const {
    const DVFactory2* maker = livingFactory();
    return maker && maker->isEditable.emit(identifier());
}

void DVComboBox2::takeItem() {
    noteText(false);
    if (const DVFactory2* maker = livingFactory()) {
        maker->setFieldText.emit(identifier(), selectedItem());
    }
}

void DVComboBox2::setText(const std::u16string& text) {
    m_ownChoice = s_reported;
    noteText(text.empty());
    if (const DVFactory2* maker = livingFactory()) {
        maker->setFieldText.emit(identifier(), text);
    }
}

void DVComboBox2::noteText(bool isEmptied) {
    m_isEmptied = isEmptied;
    if (isEmptied) {
        leftOutOfDescriptions();
    }
}

// In a description an empty text stands for the item that is selected.
void DVComboBox2::tellLeftOut() const {
    const DVFactory2* maker = m_isEmptied && isEditable() ? livingFactory() : nullptr;
    if (maker && text().empty() && !selectedItem().empty()) {
        maker->tellFieldText.emit(identifier());
    }
}

std::u16string DVComboBox2::text() const {
    const DVFactory2* maker = livingFactory();
    return maker ? maker->fieldText.emit(identifier()) : std::u16string();
}

}  // namespace DOVA
