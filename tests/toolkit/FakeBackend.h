#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/DVFactory2.h"
#include "toolkit/DVObject2.h"
#include "wiro/CallableConnection.h"

/// What the fake backend makes for one front object: keeps what it is told, as a display would.
struct FakeObject {
    FakeObject() = default;
    ~FakeObject();
    FakeObject(const FakeObject&) = delete;
    FakeObject& operator=(const FakeObject&) = delete;

    std::string kind;
    DOVA::DVObject* front = nullptr;
    DOVA::DVObject* parent = nullptr;
    std::u16string text;  // or label
    bool checked = false;
    std::vector<WIRO::Subscription> bindings;
};

/// A backend that implements dialogs, buttons, edits and box layouts as far as the tests look at
/// them. Registers itself under its key and is gone with its own end.
class FakeBackend {
public:
    explicit FakeBackend(const char* key = "web");

    /// What was made and destroyed, in order: "+Button", "-Button" and so on.
    std::string log;

    bool implements(const DOVA::DVObject& front) const {
        return m_objects.count(front.identifier()) > 0;
    }
    /// The factory goes, the objects stay.
    void loseFactory() { m_factory.reset(); }
    DOVA::DVFactory2* factory() const { return m_factory.get(); }

private:
    template <class Emitters>
    FakeObject& make(const char* kind, DOVA::DVObject* front, Emitters* emitters,
                     DOVA::DVObject* parent);
    void destroy(DOVA::DVObject::Identifier identifier);

    std::unique_ptr<DOVA::DVFactory2> m_factory = std::make_unique<DOVA::DVFactory2>(nullptr);
    std::map<DOVA::DVObject::Identifier, FakeObject> m_objects;
};
