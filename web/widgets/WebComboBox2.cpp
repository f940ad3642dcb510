#include "widgets/WebComboBox2.h"

#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/ReceivedMessage.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebComboBox2::WebComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    createElement<tdom::ComboBox>();
    declareForm(form());
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
    receive(ReceivedMessage(message));
}

void WebComboBox2::receive(const ReceivedMessage& message) {
    if (!message.has(received::event)) {
        return;
    }
    const bool isEdit = message.isEvent(events::onEdit);
    const std::u16string text = message.text(received::value);
    const TakenOver taken(identifier(), [this, index = doGetSelection(), text = doGetTextU()] {
        putBack(index, text);
    });
    seam::FieldText::write(element(), text);
    if (message.isEvent(events::onSelectionChange)) {
        const int index = message.number(received::index);
        seam::CurrentIndex::write(element(), index);
        emitUnlocked<DVComboBoxSelectEvent2>(&DVComboBox2::selectionEmitter, seam::s_ordinary,
                                             index, text, 0);
    } else if (isEdit || message.isEvent(events::onEditFinish)) {
        emitUnlocked<DVComboBoxEditEvent2>(
            isEdit ? &DVComboBox2::editEmitter : &DVComboBox2::editFinishedEmitter,
            seam::s_ordinary, text, 0);
    }
}

// The text last: for a client the item that is chosen is the text of the field.
void WebComboBox2::putBack(int index, const std::u16string& text) {
    doSetSelection(index);
    seam::FieldText::write(element(), text);
    updateText(names::text, text);
}

const WireForm& WebComboBox2::form() {
    static const struct {
        WireForm form{typeid(WebComboBox2),
                      [](WebObject2& object, const ReceivedMessage& message) {
                          static_cast<WebComboBox2&>(object).receive(message);
                      },
                      {WireForm::row<seam::Editable>(keys::editable),
                       WireForm::row<seam::FieldText>(keys::text),
                       WireForm::row<seam::CurrentIndex>(keys::currentindex),
                       {keys::entries, [](const WebObject2& object) {
                            return WireForm::Value(&seam::items::all(
                                static_cast<const WebComboBox2&>(object).element()));
                        }}}};
        EndsModule end;
    } shared;
    return shared.form;
}

QJsonObject WebComboBox2::getJSonObject() const {
    return seam::exists(element()) ? form().describe(*this) : WebWidget2::getJSonObject();
}

}  // namespace DOVA
