#include "widgets/WebComboBox2.h"

#include <QJsonArray>

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "CreateElement.h"
#include "model/ComboBox.h"

namespace DOVA {

WebComboBox2::WebComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    createElement<tdom::ComboBox>();
    doLower();
    bind(emitters->insertItemsU, &WebComboBox2::doInsertItemsU);
    bind(emitters->removeItems, &WebComboBox2::doRemoveItems);
    bind(emitters->getItemsU, &WebComboBox2::doGetItemsU);
    bind(emitters->setSelection, &WebComboBox2::doSetSelection);
    bind(emitters->getSelection, &WebComboBox2::doGetSelection);
    bind(emitters->setEditable, &WebComboBox2::doSetEditable);
}

WebComboBox2::~WebComboBox2() {
    disconnectAll();
    disableEventBroadcasting();
}

void WebComboBox2::doSetTextU(const std::u16string& text) {
    if (doGetTextU() == text) {
        return;
    }
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->setText(text);
    }
    updateProperty(keys::text, toQString(text));
}

std::u16string WebComboBox2::doGetTextU() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo ? combo->getText() : std::u16string();
}

void WebComboBox2::doAddItemsU(const std::vector<std::u16string>& items, const std::string&) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        for (const std::u16string& item : items) {
            combo->getItemsMutable().push_back(item);
        }
    }
}

void WebComboBox2::doInsertItemsU(int index, const std::vector<std::u16string>& items,
                                  const std::string& unused) {
    if (index < 0 || index >= doGetCount()) {
        doAddItemsU(items, unused);
    } else if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->getItemsMutable().insert(static_cast<std::size_t>(index), items);
    }
}

void WebComboBox2::doRemoveItems(int index) {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    if (combo && index == -1) {
        combo->getItemsMutable().clear();
    } else if (combo && index >= 0) {
        combo->getItemsMutable().erase(static_cast<std::size_t>(index));
    }
}

void WebComboBox2::doSetEditable(bool editable) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->setEditable(editable);
    }
    updateProperty(keys::editable, editable);
}

void WebComboBox2::doSetSelection(int index) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->setCurrentindex(index);
    }
    updateProperty(keys::currentindex, index);
}

void WebComboBox2::doSetPlaceholderText(const std::u16string& text) {
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->setPlaceholder(text);
    }
    updateProperty(keys::placeholder, toQString(text));
}

std::vector<std::u16string> WebComboBox2::doGetItemsU() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo ? combo->getItems().items() : std::vector<std::u16string>();
}

std::u16string WebComboBox2::doGetItemAtU(int index) const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return index > 0 && index < doGetCount() ? combo->getItems()[static_cast<std::size_t>(index)]
                                             : std::u16string();
}

bool WebComboBox2::doIsEditable() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo && combo->isEditable();
}

int WebComboBox2::doGetCount() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo ? static_cast<int>(combo->getItems().size()) : 0;
}

int WebComboBox2::doGetSelection() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo ? combo->getCurrentindex() : -1;
}

std::u16string WebComboBox2::doGetPlaceholderText() const {
    const auto combo = tdom::as<tdom::ComboBox>(element());
    return combo ? combo->getPlaceholder() : std::u16string();
}

void WebComboBox2::doimEdit(const std::string& text) {
    setProperty(names::text, utf8ToU16(text), true);
}

void WebComboBox2::doimSelect(int index) {
    setProperty(names::currentindex, index, true);
}

void WebComboBox2::doimSelectByString(const std::string& text) {
    setProperty(names::select, utf8ToU16(text), true);
}

void WebComboBox2::handleJSONMessage(const QJsonObject& message) {
    if (!message.contains(received::event)) {
        return;
    }
    const QString event = message.value(received::event).toString();
    const std::u16string text = toU16(message.value(received::value).toString());
    const auto combo = tdom::as<tdom::ComboBox>(element());
    const TakenOver taken(identifier(), [this, index = doGetSelection(), text = doGetTextU()] {
        putBack(index, text);
    });
    if (combo) {
        combo->setText(text);
    }
    if (event == events::onSelectionChange) {
        const int index = message.value(received::index).toInt(0);
        if (combo) {
            combo->setCurrentindex(index);
        }
        emitUnlocked<DVComboBoxSelectEvent2>(&DVComboBox2::selectionEmitter,
                                             WIRO::SendMode::Ordinary, index, text, 0);
    } else if (event == events::onEdit || event == events::onEditFinish) {
        emitUnlocked<DVComboBoxEditEvent2>(
            event == events::onEdit ? &DVComboBox2::editEmitter : &DVComboBox2::editFinishedEmitter,
            WIRO::SendMode::Ordinary, text, 0);
    }
}

// The text last: for a client the item that is chosen is the text of the field.
void WebComboBox2::putBack(int index, const std::u16string& text) {
    doSetSelection(index);
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        combo->setText(text);
    }
    updateProperty(keys::text, toQString(text));
}

QJsonObject WebComboBox2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (const auto combo = tdom::as<tdom::ComboBox>(element())) {
        QJsonArray entries;
        for (const std::u16string& item : combo->getItems()) {
            entries.append(toQString(item));
        }
        description.insert(keys::editable, combo->isEditable());
        description.insert(keys::text, toQString(combo->getText()));
        description.insert(keys::currentindex, combo->getCurrentindex());
        description.insert(keys::entries, entries);
    }
    return description;
}

}  // namespace DOVA
