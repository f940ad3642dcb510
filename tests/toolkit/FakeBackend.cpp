#include "FakeBackend.h"

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"

using namespace DOVA;

namespace {

template <class Set, class Get, class Value>
void keep(FakeObject& made, Set& set, Get& get, Value FakeObject::*member) {
    made.bindings.push_back(
        WIRO::connect(set, [&made, member](const Value& value) { made.*member = value; }));
    made.bindings.push_back(WIRO::connect(get, [&made, member] { return made.*member; }));
}

}  // namespace

FakeObject::~FakeObject() {
    for (WIRO::Subscription& binding : bindings) {
        binding.disconnect();
    }
}

FakeBackend::FakeBackend(const char* key) {
    WIRO::connect(m_factory->destroy, [this](unsigned identifier) { destroy(identifier); });
    WIRO::connect(m_factory->createDialog2, [this](DVDialog2* front, DVDialog2Emitters* emitters,
                                                   DVObject* parent, unsigned) {
        FakeObject& made = make("Dialog", front, emitters, parent);
        keep(made, emitters->setTitle, emitters->getTitle, &FakeObject::text);
    });
    WIRO::connect(m_factory->createBoxLayout2,
                  [this](DVBoxLayout2* front, DVBoxLayout2Emitters* emitters, DVObject* parent,
                         Direction) { make("Box", front, emitters, parent); });
    WIRO::connect(m_factory->createButton2,
                  [this](DVButton2* front, DVButton2Emitters* emitters, DVObject* parent) {
                      FakeObject& made = make("Button", front, emitters, parent);
                      keep(made, emitters->setLabelU, emitters->getLabelU, &FakeObject::text);
                      keep(made, emitters->setChecked, emitters->isChecked, &FakeObject::checked);
                  });
    WIRO::connect(m_factory->createEdit2,
                  [this](DVEdit2* front, DVEdit2Emitters* emitters, DVObject* parent) {
                      FakeObject& made = make("Edit", front, emitters, parent);
                      keep(made, emitters->setTextU, emitters->getTextU, &FakeObject::text);
                  });
    DVFactory2::registerFactory(StringID::setStringID(key), m_factory.get());
}

template <class Emitters>
FakeObject& FakeBackend::make(const char* kind, DVObject* front, Emitters* emitters,
                              DVObject* parent) {
    log += std::string("+") + kind;
    const auto identifier = front->identifier();
    FakeObject& made = m_objects[identifier];
    made.kind = kind;
    made.front = front;
    made.parent = parent;
    keep(made, emitters->setParent, emitters->getParent, &FakeObject::parent);
    made.bindings.push_back(
        WIRO::connect(emitters->destroy, [this, identifier] { destroy(identifier); }));
    return made;
}

/// With everything below it, as a display takes a window away with what is in it.
void FakeBackend::destroy(DVObject::Identifier identifier) {
    const auto object = m_objects.extract(identifier);
    if (!object) {
        return;
    }
    log += "-" + object.mapped().kind;
    std::vector<DVObject::Identifier> below;
    for (const auto& [other, child] : m_objects) {
        if (child.parent == object.mapped().front) {
            below.push_back(other);
        }
    }
    for (const DVObject::Identifier child : below) {
        destroy(child);
    }
}
