#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "toolkit/DVFactory2.h"
#include "toolkit/DVObject2.h"
#include "wiro/CallableConnection.h"

/// What the fake backend makes for one front object: keeps what it is told, as a display would.
class FakeObject {
public:
    FakeObject(std::string kindOfFront, DOVA::DVObject* frontObject)
        : kind(std::move(kindOfFront)), front(frontObject) {}
    ~FakeObject();
    FakeObject(const FakeObject&) = delete;
    FakeObject& operator=(const FakeObject&) = delete;

    template <class Signature, class Callable>
    void answer(WIRO::Emitter<Signature>& emitter, Callable callable) {
        m_bindings.push_back(WIRO::connect(emitter, std::move(callable)));
    }

    const std::string kind;
    DOVA::DVObject* const front;
    DOVA::DVObject* parent = nullptr;
    std::u16string text;  // or label
    bool checked = false;
    bool isDefault = false;

private:
    std::vector<WIRO::Subscription> m_bindings;
};

/// A backend that implements dialogs, buttons, check boxes, edits, texts and box layouts as far as
/// the tests look at them. Registers itself under "web" and is gone with its own end.
class FakeBackend {
public:
    explicit FakeBackend(const std::string& key = "web");
    ~FakeBackend();

    /// What was made and destroyed, in order: "+Button", "-Button" and so on.
    std::string log;

    bool implements(const DOVA::DVObject& front) const {
        return m_objects.count(front.identifier()) > 0;
    }
    std::size_t size() const { return m_objects.size(); }
    /// Lets every object go, as a module does that ends before the program.
    void shutDown() { m_objects.clear(); }
    /// The factory goes, the objects stay.
    void loseFactory() { m_factory.reset(); }
    DOVA::DVFactory2* factory() const { return m_factory.get(); }

private:
    template <class Front, class Emitters>
    FakeObject& make(const char* kind, Front* front, Emitters* emitters, DOVA::DVObject* parent);
    void destroy(DOVA::DVObject::Identifier identifier);
    void bindDialogsAndLayouts();
    void bindWidgets();

    std::unique_ptr<DOVA::DVFactory2> m_factory;
    std::map<DOVA::DVObject::Identifier, std::unique_ptr<FakeObject>> m_objects;
};
