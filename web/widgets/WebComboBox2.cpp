#include "widgets/WebComboBox2.h"

#include <QJsonArray>

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebComboBox2::WebComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    createElement<tdom::ComboBox>();
    doLower();
    using Emitters = DVComboBox2Emitters;
    bind(emitters, {binding<&Emitters::insertItemsU, &WebComboBox2::doInsertItemsU>,
                    binding<&Emitters::removeItems, &WebComboBox2::doRemoveItems>,
                    binding<&Emitters::getItemsU, &WebComboBox2::doGetItemsU>,
                    binding<&Emitters::setSelection, &WebComboBox2::doSetSelection>,
                    binding<&Emitters::getSelection, &WebComboBox2::doGetSelection>,
                    binding<&Emitters::setEditable, &WebComboBox2::doSetEditable>});
}

WebComboBox2::~WebComboBox2() {
    endBindings();
    disableEventBroadcasting();
}

void WebComboBox2::doSetTextU(const std::u16string& text) {
    if (doGetTextU() == text) {
        return;
    }
    seam::FieldText::write(element(), text);
    updateText(names::text, text);
}

std::u16string WebComboBox2::doGetTextU() const {
    return seam::FieldText::read(element());
}

void WebComboBox2::doAddItemsU(const std::vector<std::u16string>& items, const std::string&) {
    seam::items::append(element(), items);
}

void WebComboBox2::doInsertItemsU(int index, const std::vector<std::u16string>& items,
                                  const std::string& unused) {
    if (index < 0 || index >= doGetCount()) {
        doAddItemsU(items, unused);
    } else {
        seam::items::insert(element(), static_cast<std::size_t>(index), items);
    }
}

void WebComboBox2::doRemoveItems(int index) {
    if (index == -1) {
        seam::items::clear(element());
    } else if (index >= 0) {
        seam::items::erase(element(), static_cast<std::size_t>(index));
    }
}

void WebComboBox2::doSetEditable(bool editable) {
    seam::Editable::write(element(), editable);
    updateProperty(keys::editable, editable);
}

void WebComboBox2::doSetSelection(int index) {
    seam::CurrentIndex::write(element(), index);
    updateProperty(keys::currentindex, index);
}

void WebComboBox2::doSetPlaceholderText(const std::u16string& text) {
    seam::FieldPlaceholder::write(element(), text);
    updateText(names::placeholder, text);
}

std::vector<std::u16string> WebComboBox2::doGetItemsU() const {
    return seam::items::all(element());
}

std::u16string WebComboBox2::doGetItemAtU(int index) const {
    const bool isTold = index > 0 && index < doGetCount();
    return isTold ? seam::items::all(element())[static_cast<std::size_t>(index)] : std::u16string();
}

bool WebComboBox2::doIsEditable() const {
    return seam::Editable::read(element());
}

int WebComboBox2::doGetCount() const {
    return static_cast<int>(seam::items::all(element()).size());
}

int WebComboBox2::doGetSelection() const {
    return seam::CurrentIndex::read(element(), -1);
}

std::u16string WebComboBox2::doGetPlaceholderText() const {
    return seam::FieldPlaceholder::read(element());
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
    const TakenOver taken(identifier(), [this, index = doGetSelection(), text = doGetTextU()] {
        putBack(index, text);
    });
    seam::FieldText::write(element(), text);
    if (event == events::onSelectionChange) {
        const int index = message.value(received::index).toInt(0);
        seam::CurrentIndex::write(element(), index);
        emitUnlocked<DVComboBoxSelectEvent2>(&DVComboBox2::selectionEmitter, seam::s_ordinary,
                                             index, text, 0);
    } else if (event == events::onEdit || event == events::onEditFinish) {
        emitUnlocked<DVComboBoxEditEvent2>(
            event == events::onEdit ? &DVComboBox2::editEmitter : &DVComboBox2::editFinishedEmitter,
            seam::s_ordinary, text, 0);
    }
}

// The text last: for a client the item that is chosen is the text of the field.
void WebComboBox2::putBack(int index, const std::u16string& text) {
    doSetSelection(index);
    seam::FieldText::write(element(), text);
    updateText(names::text, text);
}

QJsonObject WebComboBox2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (seam::exists(element())) {
        QJsonArray entries;
        for (const std::u16string& item : seam::items::all(element())) {
            entries.append(toQString(item));
        }
        description.insert(keys::editable, seam::Editable::read(element()));
        description.insert(keys::text, toQString(seam::FieldText::read(element())));
        description.insert(keys::currentindex, seam::CurrentIndex::read(element()));
        description.insert(keys::entries, entries);
    }
    return description;
}

}  // namespace DOVA
