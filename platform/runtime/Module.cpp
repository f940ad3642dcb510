#include "runtime/Module.h"

#include <dlfcn.h>

#include <set>
#include <string>
#include <utility>

#include "InstalledFiles.h"
#include "host/FunctionEvaluation.h"
#include "runtime/StartError.h"
#include "toolkit/DVFactory2.h"

namespace DOVA::runtime {

namespace {

constexpr const char* s_initialise = "KVInitialize_dova2_web";
constexpr const char* s_terminate = "KVTerminate_dova2_web";
// bool DOVA::web::KorvidOnlineFlag::get(), by the name that the C++ ABI gives it.
constexpr const char* s_online = "_ZN4DOVA3web16KorvidOnlineFlag3getEv";

constexpr const char* s_onlineQuery = "korvid.internal.environment.context.isKORVIDOnline";

void* load(const std::filesystem::path& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!handle) {
        throw StartError(std::string("cannot load the module: ") + dlerror());
    }
    return handle;
}

void* find(void* handle, const std::filesystem::path& path, const char* name) {
    void* symbol = dlsym(handle, name);
    if (!symbol) {
        throw StartError("the module \"" + path.string() + "\" has no entry point " + name);
    }
    return symbol;
}

// Those that offer themselves to the front classes do so once: a second start of theirs does
// nothing, and what is made then would have nothing behind it.
std::set<void*>& startedModules() {
    static std::set<void*> handles;
    return handles;
}

bool servesFrontClasses() {
    return DVFactory2::getFactory(StringID::setStringID("web")) != nullptr;
}

std::vector<host::ArrayPointer> answerOnline(const std::vector<const kaArray*>&, int) {
    std::vector<host::ArrayPointer> answer;
    answer.emplace_back(kaCreateLogicalScalar(true));
    return answer;
}

}  // namespace

Module::Module(const std::filesystem::path& path) {
    const std::filesystem::path file = path.empty() ? InstalledFiles::module() : path;
    void* handle = load(file);
    if (startedModules().count(handle) > 0) {
        throw StartError("the module \"" + file.string() +
                         "\" has served a host in this process before and does not start again");
    }
    m_handle = handle;
    m_initialise = reinterpret_cast<EntryPoint>(find(handle, file, s_initialise));
    m_terminate = reinterpret_cast<EntryPoint>(find(handle, file, s_terminate));
    m_online = reinterpret_cast<Flag>(find(handle, file, s_online));
}

Module::~Module() {
    terminate();
}

void Module::initialise() {
    m_running = true;
    m_initialise();
    if (servesFrontClasses()) {
        startedModules().insert(m_handle);
    }
}

void Module::goOnline() {
    host::registerFunction(s_onlineQuery, answerOnline);
    m_online();
}

void Module::terminate() {
    if (std::exchange(m_running, false)) {
        m_terminate();
        host::registerFunction(s_onlineQuery, {});
    }
}

}  // namespace DOVA::runtime
