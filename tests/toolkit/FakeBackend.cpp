#include "FakeBackend.h"

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"

using namespace DOVA;

FakeObject::~FakeObject() {
    for (WIRO::Subscription& binding : m_bindings) {
        binding.disconnect();
    }
}

FakeBackend::FakeBackend(const std::string& key)
    : m_factory(std::make_unique<DVFactory2>(nullptr)) {
    WIRO::connect(m_factory->destroy, [this](unsigned identifier) { destroy(identifier); });
    bindDialogsAndLayouts();
    bindWidgets();
    DVFactory2::registerFactory(StringID::setStringID(key), m_factory.get());
}

FakeBackend::~FakeBackend() = default;

template <class Front, class Emitters>
FakeObject& FakeBackend::make(const char* kind, Front* front, Emitters* emitters,
                              DVObject* parent) {
    log += std::string("+") + kind;
    auto& object = m_objects[front->identifier()];
    object = std::make_unique<FakeObject>(kind, front);
    object->parent = parent;
    FakeObject* made = object.get();
    made->answer(emitters->setParent, [made](DVObject* newParent) { made->parent = newParent; });
    made->answer(emitters->destroy,
                 [this, identifier = front->identifier()] { destroy(identifier); });
    made->answer(emitters->getParent, [made] { return made->parent; });
    return *made;
}

/// With everything below it, as a display takes a window away with what is in it.
void FakeBackend::destroy(DVObject::Identifier identifier) {
    const auto found = m_objects.find(identifier);
    if (found == m_objects.end()) {
        return;
    }
    const std::unique_ptr<FakeObject> object = std::move(found->second);
    m_objects.erase(found);
    log += "-" + object->kind;
    std::vector<DVObject::Identifier> below;
    for (const auto& [other, child] : m_objects) {
        if (child->parent == object->front) {
            below.push_back(other);
        }
    }
    for (const DVObject::Identifier child : below) {
        destroy(child);
    }
}

void FakeBackend::bindDialogsAndLayouts() {
    WIRO::connect(m_factory->createDialog2, [this](DVDialog2* front, DVDialog2Emitters* emitters,
                                                   DVObject* parent, unsigned) {
        FakeObject& made = make("Dialog", front, emitters, parent);
        made.answer(emitters->setTitle, [&made](const std::u16string& text) { made.text = text; });
        made.answer(emitters->getTitle, [&made] { return made.text; });
    });
    WIRO::connect(m_factory->createBoxLayout2,
                  [this](DVBoxLayout2* front, DVBoxLayout2Emitters* emitters, DVObject* parent,
                         Direction) { make("Box", front, emitters, parent); });
}

void FakeBackend::bindWidgets() {
    const auto bindButton = [](FakeObject& made, DVAbstractButton2Emitters* emitters) {
        made.answer(emitters->setLabelU, [&made](const std::u16string& text) { made.text = text; });
        made.answer(emitters->getLabelU, [&made] { return made.text; });
        made.answer(emitters->setChecked, [&made](bool checked) { made.checked = checked; });
        made.answer(emitters->isChecked, [&made] { return made.checked; });
    };
    const auto bindText = [](FakeObject& made, auto* emitters) {
        made.answer(emitters->setTextU, [&made](const std::u16string& text) { made.text = text; });
        made.answer(emitters->getTextU, [&made](bool) { return made.text; });
    };
    WIRO::connect(m_factory->createButton2, [=](DVButton2* front, DVButton2Emitters* emitters,
                                                DVObject* parent) {
        FakeObject& made = make("Button", front, emitters, parent);
        bindButton(made, emitters);
        made.answer(emitters->isDefault, [&made] { return made.isDefault; });
        made.answer(emitters->setDefault, [&made](bool isDefault) { made.isDefault = isDefault; });
    });
    WIRO::connect(m_factory->createCheckBox2,
                  [=](DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject* parent) {
                      bindButton(make("CheckBox", front, emitters, parent), emitters);
                  });
    WIRO::connect(m_factory->createEdit2,
                  [=](DVEdit2* front, DVEdit2Emitters* emitters, DVObject* parent) {
                      bindText(make("Edit", front, emitters, parent), emitters);
                  });
    WIRO::connect(m_factory->createText2,
                  [=](DVText2* front, DVText2Emitters* emitters, DVObject* parent) {
                      bindText(make("Text", front, emitters, parent), emitters);
                  });
}
