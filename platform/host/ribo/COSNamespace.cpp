#include "host/ribo/COSNamespace.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <typeinfo>
#include <utility>

#include "host/ribo/COSNamespaceInfo.h"

namespace ribo {

namespace {

std::uint64_t s_generation = 0;

InternedString fullNameOf(const COSNamespace* outer, InternedString name) {
    return outer == nullptr
               ? name
               : internal::makeInterned(outer->getFullName().text() + "." + name.text());
}

/// Ends what stands at the start of storage from `std::malloc`, whichever of its bases is meant.
template <class Info>
void destroy(Info* info) noexcept {
    void* const storage = dynamic_cast<void*>(info);
    info->~Info();
    std::free(storage);
}

std::pair<std::string, std::string> splitAtLastDot(const std::string& fullName) {
    const std::size_t dot = fullName.rfind('.');
    return dot == std::string::npos ? std::pair(std::string(), fullName)
                                    : std::pair(fullName.substr(0, dot), fullName.substr(dot + 1));
}

/// Ends a class, and with it the hold on the library that its code is in.
struct ClassDeleter {
    void* library = nullptr;

    void operator()(COSClassInfo* info) const noexcept {
        destroy(info);
        if (library != nullptr) {
            dlclose(library);
        }
    }
};

/// Keeps the library loaded as long as values of its class live on, though its module was ended.
void holdLibrary(const ClassPointer& described) {
    Dl_info place{};
    const COSClassInfo& info = *described;
    if (dladdr(&typeid(info), &place) != 0) {
        std::get_deleter<ClassDeleter>(described)->library =
            dlopen(place.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    }
}

/// The classes in use, so that an instance is made without a walk through the tree.
std::unordered_map<InternedString, std::weak_ptr<COSClassInfo>>& knownClasses() {
    static auto& classes = *new std::unordered_map<InternedString, std::weak_ptr<COSClassInfo>>;
    return classes;
}

}  // namespace

void COSNamespace::InfoDeleter::operator()(COSNamespaceInfo* info) const noexcept {
    destroy(info);
}

COSNamespace::COSNamespace(InfoPointer info, COSNamespace* outer)
    : m_info(std::move(info)),
      m_outer(outer),
      m_name(m_info->getName()),
      m_fullName(fullNameOf(outer, m_name)) {
    ++s_generation;
}

COSNamespace::~COSNamespace() {
    ++s_generation;
    forgetMembers();
}

COSNamespace::Children& COSNamespace::topNamespaces() {
    // Never destroyed: modules take theirs away when they are unloaded or the process ends.
    static Children& namespaces = *new Children;
    return namespaces;
}

COSNamespace* COSNamespace::find(const Children& children, InternedString name) {
    for (const auto& child : children) {
        if (child->m_name == name) {
            return child.get();
        }
    }
    return nullptr;
}

COSNamespace* COSNamespace::add(COSNamespaceInfo* info, COSNamespace* outer) {
    InfoPointer owned(info);
    if (owned == nullptr) {
        return nullptr;
    }
    Children& children = outer != nullptr ? outer->m_inner : topNamespaces();
    if (COSNamespace* present = find(children, owned->getName())) {
        return present;
    }
    children.push_back(std::unique_ptr<COSNamespace>(new COSNamespace(std::move(owned), outer)));
    return children.back().get();
}

COSNamespace* COSNamespace::addNamespace(COSNamespaceInfo* info) {
    return add(info, nullptr);
}

COSNamespace* COSNamespace::addNamespace(COSNamespaceInfo* info, COSNamespace& outer) {
    return add(info, &outer);
}

COSNamespace* COSNamespace::getNamespace(InternedString fullName) {
    const std::string& text = fullName.text();
    COSNamespace* found = nullptr;
    for (std::size_t start = 0, end = 0;; start = end + 1) {
        end = std::min(text.find('.', start), text.size());
        const InternedString name = internal::makeInterned(text.substr(start, end - start));
        found = found != nullptr ? cosiToNamespace(found->getInnerNamespace(name))
                                 : find(topNamespaces(), name);
        if (found == nullptr || end == text.size()) {
            return found;
        }
    }
}

COSInterface* COSNamespace::getNamespaceInterface(InternedString fullName) {
    return getNamespace(fullName);
}

std::vector<COSNamespace*> COSNamespace::getTopNamespaces() {
    std::vector<COSNamespace*> result;
    for (const auto& each : topNamespaces()) {
        result.push_back(each.get());
    }
    return result;
}

ClassPointer COSNamespace::getClass(InternedString fullName) {
    const auto known = knownClasses().find(fullName);
    if (known != knownClasses().end()) {
        return known->second.lock();
    }
    const auto [outerName, name] = splitAtLastDot(fullName.text());
    COSNamespace* outer = getNamespace(internal::makeInterned(std::string(outerName)));
    return outer == nullptr ? nullptr
                            : outer->getClassInside(internal::makeInterned(std::string(name)));
}

std::uint64_t COSNamespace::generation() noexcept {
    return s_generation;
}

void COSNamespace::cleanUp(COSClient* client) {
    if (client == nullptr || !m_info->isDestructible()) {
        return;
    }
    Children& siblings = m_outer != nullptr ? m_outer->m_inner : topNamespaces();
    const auto place = std::find_if(siblings.begin(), siblings.end(),
                                    [this](const auto& each) { return each.get() == this; });
    const auto self = std::move(*place);  // out of the tree before anything inside it ends
    siblings.erase(place);
}

void COSNamespace::listMembersOnce() {
    if (std::exchange(m_listed, true)) {
        return;
    }
    try {
        m_info->listMembers(*this);
    } catch (...) {  // out of memory, say: who asks next gets all of them or the next error
        forgetMembers();
        m_listed = false;
        throw;
    }
}

void COSNamespace::forgetMembers() {
    for (const ClassPointer& each : m_classes) {
        knownClasses().erase(each->getFullName());
        if (each.use_count() > 1) {
            holdLibrary(each);
        }
    }
    m_classes.clear();
    m_functionsByName.clear();
    m_functions.clear();
}

/// What `find` gives; if that is nothing, what it gives after the description loaded it.
template <class Find, class Load>
auto COSNamespace::findOrLoad(const Find& find, const Load& load) {
    listMembersOnce();
    auto found = find();
    if (found == nullptr && m_info->canLoadDynamicContent() && load()) {
        found = find();
    }
    return found;
}

COSInterface* COSNamespace::getInnerNamespace(InternedString name) {
    return findOrLoad([&] { return find(m_inner, name); },
                      [&] { return m_info->attemptToLoadInnerNamespace(*this, name); });
}

const OverloadSet* COSNamespace::getFunction(InternedString name) {
    const auto find = [&]() -> const OverloadSet* {
        const auto found = m_functionsByName.find(name);
        return found == m_functionsByName.end() ? nullptr : &found->second;
    };
    return findOrLoad(find, [&] { return m_info->attemptToLoadFunction(*this, name); });
}

ClassPointer COSNamespace::getClassInside(InternedString name) {
    const auto find = [&]() -> ClassPointer {
        const auto found = std::find_if(m_classes.begin(), m_classes.end(),
                                        [&](const auto& each) { return each->getName() == name; });
        return found == m_classes.end() ? nullptr : *found;
    };
    return findOrLoad(find, [&] { return m_info->attemptToLoadClass(*this, name); });
}

std::vector<COSNamespace*> COSNamespace::getInnerNamespaces() {
    listMembersOnce();
    std::vector<COSNamespace*> result;
    for (const auto& each : m_inner) {
        result.push_back(each.get());
    }
    return result;
}

const std::vector<factory::RiboMethod>& COSNamespace::getFunctions() {
    listMembersOnce();
    return m_functions;
}

const std::vector<ClassPointer>& COSNamespace::getClasses() {
    listMembersOnce();
    return m_classes;
}

void COSNamespace::addFunction(factory::RiboMethod function) {
    m_functionsByName[function.getName()].add(function);
    m_functions.push_back(std::move(function));
}

void COSNamespace::addClass(COSClassInfo* info) {
    if (info == nullptr) {
        return;
    }
    const ClassPointer added(info, ClassDeleter());
    const auto isSame = [&](const auto& each) { return each->getName() == added->getName(); };
    if (std::any_of(m_classes.begin(), m_classes.end(), isSame)) {
        return;
    }
    m_classes.push_back(added);
    knownClasses()[added->getFullName()] = added;
}

}  // namespace ribo
