#pragma once

#include <string>
#include <utility>

#include "host/ribo/COSClassInfo.h"
#include "host/ribo/factory/Adapters.h"

namespace ribo::factory {

/// A class description whose members are made of C++ functions, one line a member.
class DOVA_HOST_EXPORT RiboFactoryClassInfo : public virtual COSClassInfo {
public:
    ~RiboFactoryClassInfo() override;

protected:
    RiboFactoryClassInfo();

    /// Describes the class with the operations below. Called when somebody first asks for its
    /// members, and again only after it threw.
    virtual void describe() = 0;

    // For describe() alone. The first parameter of a method, a getter and a setter is the instance.

    template <class Callable>
    void constructor(Callable callable) {
        m_members->addConstructor(makeMethod(getName().text(), {true, false}, std::move(callable)));
    }
    void method(RiboMethod method) { m_members->addMethod(std::move(method)); }
    template <class Callable>
    void method(const char* name, Callable callable) {
        m_members->addMethod(makeMethod(name, {}, std::move(callable)));
    }
    template <class Callable>
    void staticMethod(const char* name, Callable callable) {
        m_members->addMethod(makeMethod(name, {true, false}, std::move(callable)));
    }
    template <class Getter>
    void property(const char* name, Getter getter) {
        m_members->addProperty(makeProperty(name, {}, std::move(getter)));
    }
    template <class Getter, class Setter>
    void property(const char* name, Getter getter, Setter setter) {
        m_members->addProperty(makeProperty(name, {}, std::move(getter), std::move(setter)));
    }
    template <class Getter, class Setter>
    void hiddenProperty(const char* name, Getter getter, Setter setter) {
        m_members->addProperty(
            makeProperty(name, {false, true}, std::move(getter), std::move(setter)));
    }
    template <class Getter>
    void constant(const char* name, Getter getter) {
        m_members->addProperty(makeProperty(name, {true, false}, std::move(getter)));
    }

private:
    void describeMembers(ClassMembers& members) final;

    ClassMembers* m_members = nullptr;  // during describe()
};

}  // namespace ribo::factory
