#include "core/WebFactory2.h"

#include "ModuleEnd.h"
#include "PropertyNames.h"
#include "TakenOver.h"
#include "TextConversions.h"
#include "core/ConnectionImplX.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"
#include "widgets/WebButton2.h"
#include "widgets/WebCheckBox2.h"
#include "widgets/WebComboBox2.h"
#include "widgets/WebEdit2.h"
#include "widgets/WebText2.h"
#include "windows/WebBoxLayout2.h"
#include "windows/WebDialog2.h"
#include "windows/WebGridLayout2.h"
#include "windows/WebGroupBox2.h"
#include "windows/WebPanel2.h"
#include "windows/WebTab2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA {

namespace {

template <class Web>
Web* find(unsigned int id) {
    WebObjectService2* service = WebObjectService2::instance();
    return service ? dynamic_cast<Web*>(service->getObject(id)) : nullptr;
}

}  // namespace

WebFactory2* WebFactory2::s_factory = nullptr;

WebFactory2::WebFactory2(DVFactory2* factory) {
    WIRO::bind(factory->destroy, this, &WebFactory2::destroyObject);
    WIRO::bind(factory->createDialog2, this, &WebFactory2::createDialog2);
    WIRO::bind(factory->createCheckBox2, this, &WebFactory2::createCheckBox2);
    WIRO::bind(factory->createBoxLayout2, this, &WebFactory2::createBoxLayout2);
    WIRO::bind(factory->createGridLayout2, this, &WebFactory2::createGridLayout2);
    WIRO::bind(factory->createGroupBox2, this, &WebFactory2::createGroupBox2);
    WIRO::bind(factory->createPanel2, this, &WebFactory2::createPanel2);
    WIRO::bind(factory->createText2, this, &WebFactory2::createText2);
    WIRO::bind(factory->createButton2, this, &WebFactory2::createButton2);
    WIRO::bind(factory->createEdit2, this, &WebFactory2::createEdit2);
    WIRO::bind(factory->createComboBox2, this, &WebFactory2::createComboBox2);
    WIRO::bind(factory->createTab2, this, &WebFactory2::createTab2);
    WIRO::bind(factory->createTabContainer2, this, &WebFactory2::createTabContainer2);
    WIRO::bind(factory->isCheckable, this, &WebFactory2::isCheckable);
    WIRO::bind(factory->isEditable, this, &WebFactory2::isEditable);
    WIRO::bind(factory->fieldText, this, &WebFactory2::fieldText);
    WIRO::bind(factory->setFieldText, this, &WebFactory2::setFieldText);
    WIRO::bind(factory->tellFieldText, this, &WebFactory2::tellFieldText);
    WIRO::bind(factory->putBack, this, &WebFactory2::putBack);
}

WebFactory2::~WebFactory2() = default;

void WebFactory2::createFactory(DVFactory2* factory) {
    if (!s_factory) {
        s_factory = new WebFactory2(factory);
    }
}

seam::ModelReference WebFactory2::getModel() {
    static const struct {
        seam::ModelReference model = pf::zero::Model::create(pf::zero::ModelConstellation());
        EndsModule end;
    } shared;
    return shared.model;
}

// Each new object is reached through the service and deleted through destroyObject.

void WebFactory2::createDialog2(DVDialog2* front, DVDialog2Emitters* emitters, DVObject* parent,
                                unsigned int) {
    new WebDialog2(front, emitters, parent);
}

void WebFactory2::createCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters,
                                  DVObject* parent) {
    new WebCheckBox2(front, emitters, parent);
}

void WebFactory2::createBoxLayout2(DVBoxLayout2* front, DVBoxLayout2Emitters* emitters,
                                   DVObject* parent, Direction) {
    new WebBoxLayout2(front, emitters, parent);
}

void WebFactory2::createGridLayout2(DVGridLayout2* front, DVGridLayout2Emitters* emitters,
                                    DVObject* parent) {
    new WebGridLayout2(front, emitters, parent);
}

void WebFactory2::createGroupBox2(DVGroupBox2* front, DVGroupBox2Emitters* emitters,
                                  DVObject* parent) {
    new WebGroupBox2(front, emitters, parent);
}

void WebFactory2::createPanel2(DVPanel2* front, DVPanel2Emitters* emitters, DVObject* parent,
                               bool) {
    new WebPanel2(front, emitters, parent);
}

void WebFactory2::createText2(DVText2* front, DVText2Emitters* emitters, DVObject* parent) {
    new WebText2(front, emitters, parent);
}

void WebFactory2::createButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject* parent) {
    new WebButton2(front, emitters, parent);
}

void WebFactory2::createEdit2(DVEdit2* front, DVEdit2Emitters* emitters, DVObject* parent) {
    new WebEdit2(front, emitters, parent);
}

void WebFactory2::createComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters,
                                  DVObject* parent) {
    new WebComboBox2(front, emitters, parent);
}

void WebFactory2::createTab2(DVTab2* front, DVTab2Emitters* emitters, DVObject* parent) {
    new WebTab2(front, emitters, parent);
}

void WebFactory2::createTabContainer2(DVTabContainer2* front, DVTabContainer2Emitters* emitters,
                                      DVObject* parent) {
    new WebTabContainer2(front, emitters, parent);
}

bool WebFactory2::isCheckable(unsigned int id) {
    const auto* button = find<WebAbstractButton2>(id);
    return button && button->doIsCheckable();
}

bool WebFactory2::isEditable(unsigned int id) {
    const auto* combo = find<WebComboBox2>(id);
    return combo && combo->doIsEditable();
}

std::u16string WebFactory2::fieldText(unsigned int id) {
    const auto* combo = find<WebComboBox2>(id);
    return combo ? combo->doGetTextU() : std::u16string();
}

void WebFactory2::setFieldText(unsigned int id, const std::u16string& text) {
    if (auto* combo = find<WebComboBox2>(id)) {
        combo->doSetTextU(text);
    }
}

void WebFactory2::tellFieldText(unsigned int id) {
    if (auto* combo = find<WebComboBox2>(id)) {
        combo->updateProperty(keys::text, toQString(combo->doGetTextU()));
    }
}

void WebFactory2::putBack(unsigned int id) {
    TakenOver::putBack(id);
}

void WebFactory2::destroyObject(unsigned int id) {
    WebObjectService2* service = WebObjectService2::instance();
    if (WebObject2* object = service ? service->getObject(id) : nullptr) {
        object->doDestory();
    }
}

}  // namespace DOVA
