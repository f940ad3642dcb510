#include "Lab.h"

#include <csignal>
#include <cstdlib>
#include <limits>
#include <map>
#include <new>

#include "host/Utf8.h"
#include "host/foundation/bad_alloc.h"
#include "host/ribo/COSNamespaceInfo.h"
#include "host/ribo/factory/Adapters.h"

namespace DOVA::test {

using ribo::factory::kaArrayProxy;
using ribo::factory::makeMethod;
using ribo::factory::MethodAttributes;

namespace {

constexpr MethodAttributes s_static{true, false};
constexpr MethodAttributes s_hidden{true, true};

ribo::InternedString interned(std::string text) {
    return ribo::internal::makeInterned(std::move(text));
}

/// A value as a test reads it, its kind first.
std::string described(const kaArray* value) {
    std::string inner;
    switch (kaGetClassID(value)) {
        case kaClassID::Char:
            return "char " + std::to_string(kaGetNumberOfElements(value)) + " " +
                   host::toUtf8(kaGetString(value));
        case kaClassID::Cell:
            for (std::size_t index = 0; index < kaGetNumberOfElements(value); ++index) {
                inner += "[" + described(kaGetCell(value, index)) + "]";
            }
            return "cell" + inner;
        case kaClassID::Struct:
            for (const std::u16string& name : kaGetFieldNames(value)) {
                inner += "[" + host::toUtf8(name) + " " + described(kaGetField(value, name)) + "]";
            }
            return "struct" + inner;
        default:
            return (kaIsLogicalScalar(value) ? "logical "
                    : matrix::isEmpty(value) ? "empty "
                                             : "") +
                   ribo::display(value);
    }
}

/// Values that scripts cannot make themselves.
host::ArrayPointer made(const std::u16string& what) {
    const double numbers[] = {1, 2.5, -0.0};
    const bool logicals[] = {true, false};
    kaArray* nested = kaCreateCellMatrix(0, 0, nullptr);
    for (int level = 0; what == u"deep cells" && level < 101; ++level) {
        nested = kaCreateCellMatrix(1, 1, &nested);
    }
    const std::u16string_view names[] = {u"a", u"ž"};
    kaArray* const values[] = {kaCreateInt32Scalar(-7), nested};
    host::ArrayPointer structure(kaCreateStructScalar(2, names, values));
    static const std::map<std::u16string, std::function<kaArray*()>> others = {
        {u"minus zero", [] { return kaCreateDoubleScalar(-0.0); }},
        {u"largest whole", [] { return kaCreateDoubleScalar(9007199254740992.0); }},
        {u"beyond", [] { return kaCreateDoubleScalar(9007199254740994.0); }},
        {u"infinity", [] { return kaCreateDoubleScalar(std::numeric_limits<double>::infinity()); }},
        {u"uint64", [] { return kaCreateUInt64Scalar(9223372036854775807u); }},
        {u"uint64 beyond", [] { return kaCreateUInt64Scalar(18446744073709551615u); }},
        {u"surrogate", [] { return kaCreateString(u"a\xD800z"); }},
        {u"no text", [] { return kaCreateString(u""); }},
    };
    if (what == u"numbers") {
        return host::ArrayPointer(kaCreateDoubleMatrix(1, 3, numbers));
    }
    if (what == u"logicals") {
        return host::ArrayPointer(kaCreateLogicalMatrix(2, 1, logicals));
    }
    const auto found = others.find(what);
    return found != others.end() ? host::ArrayPointer(found->second()) : std::move(structure);
}

/// An object that no class describes.
struct Undescribed : kaObject {
    const std::string& className() const noexcept override {
        static const std::string name = "lab.Undescribed";
        return name;
    }
    std::shared_ptr<kaObject> copy() const override { return std::make_shared<Undescribed>(*this); }
    Counted counted;
};

template <class Info, class... Arguments>
Info* allocated(Arguments&&... arguments) {
    return new (std::calloc(1, sizeof(Info))) Info(std::forward<Arguments>(arguments)...);
}

class TallyClass : public ribo::factory::CopyableDataTypeClassInfo<Tally> {
public:
    TallyClass() : COSClassInfo("Tally", "lab inner Tally") {}

private:
    void describeOwnMembers() override {
        constructor([](double total) { return Tally{total, {}, {}}; });
        method("add", [](Tally& self, double number) { self.total += number; });
        method("add", [](Tally& self, const Tally& other) { self.total += other.total; });
        method("twin", [](Tally& self) { return self; });
        method(makeMethod("secret", {false, true}, [](Tally&) { return true; }));
        staticMethod("of", [](double total) { return Tally{total, {}, {}}; });
        property("Total", [](Tally& self) { return self.total; });
        property(
            "Name", [](Tally& self) { return self.name; },
            [](Tally& self, const std::u16string& name) { self.name = name; });
        constant("Zero", [] { return Tally(); });
    }
};

class MarkerClass : public ribo::factory::CopyableDataTypeClassInfo<Marker> {
public:
    explicit MarkerClass(const std::string& name) : COSClassInfo(name, "lab inner " + name) {}
    bool isHidden() const override { return getName().text() == "Unseen"; }

private:
    void describeOwnMembers() override {}
};

/// A namespace whose members a function adds.
class Description : public ribo::COSNamespaceInfo {
public:
    using List = void (*)(ribo::COSNamespace&);
    Description(const char* name, List list) : m_name(interned(name)), m_list(list) {}

    ribo::InternedString getName() const override { return m_name; }
    bool isDestructible() const override { return true; }
    void listMembers(ribo::COSNamespace& self) const override { m_list(self); }

private:
    const ribo::InternedString m_name;
    const List m_list;
};

void listFunctions(ribo::COSNamespace& lab) {
    lab.addFunction(makeMethod("describe", s_static, [](const kaArrayProxy& value) {
        return host::fromUtf8(described(value.get()));
    }));
    lab.addFunction(makeMethod(
        "make", s_static, [](const std::u16string& what) { return kaArrayProxy(made(what)); }));
    lab.addFunction(makeMethod("undescribed", s_static, [] {
        return kaArrayProxy(host::ArrayPointer(kaCreateObject(std::make_shared<Undescribed>())));
    }));
    lab.addFunction(makeMethod("fail", s_static, [](const std::u16string& text) {
        throw host::Error("lab:Failed", host::toUtf8(text));
    }));
    lab.addFunction(makeMethod("exhaust", s_static, [] { foundation::throwBadAlloc(); }));
    lab.addFunction(makeMethod("secret", s_hidden, [] {}));
    lab.addFunction(makeMethod("interrupt", s_static, [] { std::raise(SIGINT); }));
    lab.addFunction(makeMethod("nothing", s_static, [] {}));
}

void listClasses(ribo::COSNamespace& inner) {
    inner.addClass(allocated<TallyClass>());
    inner.addClass(allocated<MarkerClass>("Marker"));
    inner.addClass(allocated<MarkerClass>("Unseen"));
}

}  // namespace

Lab::Lab() {
    ribo::factory::detail::initStringDataTypes();
    auto* lab = ribo::COSNamespace::addNamespace(allocated<Description>("lab", listFunctions));
    ribo::COSNamespace::addNamespace(allocated<Description>("inner", listClasses), *lab);
}

Lab::~Lab() {
    remove("lab");
}

void Lab::addInner(const char* name) {
    const auto listNothing = [](ribo::COSNamespace&) {};
    ribo::COSNamespace::addNamespace(allocated<Description>(name, listNothing),
                                     *ribo::COSNamespace::getNamespace(interned("lab")));
}

void Lab::remove(const char* fullName) {
    if (auto* space = ribo::COSNamespace::getNamespaceInterface(interned(fullName))) {
        space->cleanUp(COSGetPublicClient());
    }
}

}  // namespace DOVA::test
