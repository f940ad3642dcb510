#include "Workshop.h"

#include <string>
#include <vector>

#include "Crate.h"
#include "Lamp.h"
#include "Outcome.h"

namespace host::test {

namespace {

/// Adds an overload of "pick" that gives its own parameters' names.
template <class... Parameters>
void addPick(ribo::COSNamespace& self, std::u16string parameters) {
    using ribo::factory::makeMethod;
    self.addFunction(makeMethod("pick", {}, [parameters](Parameters...) { return parameters; }));
}

/// Adds a function "same_..." that gives back its argument.
template <class T>
void addSame(ribo::COSNamespace& self, const std::string& type) {
    using ribo::factory::makeMethod;
    self.addFunction(makeMethod("same_" + type, {}, [](T value) { return value; }));
}

}  // namespace

ribo::InternedString Workshop::getName() const {
    return interned("workshop");
}

void Workshop::listMembers(ribo::COSNamespace& self) const {
    using Any = ribo::factory::kaArrayProxy;
    ++s_listed;
    addPick<>(self, u"nothing");
    // The one that takes everything stands first: where it is chosen, nothing fits better.
    addPick<Any>(self, u"any");
    addPick<bool>(self, u"logical");
    addPick<std::int32_t>(self, u"int32");
    addPick<std::uint64_t>(self, u"uint64");
    addPick<double>(self, u"double");
    addPick<std::u16string>(self, u"text");
    addPick<std::vector<std::u16string>>(self, u"texts");
    addPick<const Crate&>(self, u"crate");
    addPick<const Lamp&>(self, u"lamp");
    addPick<std::int32_t, Any>(self, u"int32, any");
    addPick<Any, std::int32_t>(self, u"any, int32");
    addPick<double, double>(self, u"double, double");
    addSame<bool>(self, "logical");
    addSame<std::int32_t>(self, "int32");
    addSame<std::uint64_t>(self, "uint64");
    addSame<double>(self, "double");
    addSame<std::vector<std::u16string>>(self, "texts");
    self.addClass(describe<CrateClass>());
    self.addClass(describe<LampClass>());
    self.addClass(describe<CrateClass>());
    self.addClass(nullptr);
}

}  // namespace host::test
