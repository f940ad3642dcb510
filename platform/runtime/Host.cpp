#include "runtime/Host.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "Door.h"
#include "InputWatch.h"
#include "MainLoop.h"
#include "PageListener.h"
#include "messaging/InProcessBus.h"
#include "model/DocumentMirror.h"
#include "runtime/Module.h"
#include "runtime/StartError.h"
#include "toolkit/ApplicationContext.h"
#include "toolkit/DVAbstractWindow2.h"

namespace DOVA::runtime {

using tdom::messaging::InProcessBus;
using tdom::messaging::MessageBus;

namespace {

// A little longer than the gateway takes at the most.
constexpr std::chrono::milliseconds s_longestStop{3000};
// Texts that answer each other for ever must not keep the program from ending.
constexpr int s_lastDeliveries = 1000;

std::shared_ptr<InProcessBus> installBus() {
    auto bus = std::make_shared<InProcessBus>();
    MessageBus::install(bus);
    return bus;
}

void setApplicationRoot(const std::filesystem::path& root) {
    DVServices::ServiceHolder::instance().setApplicationContext(
        root.empty() ? nullptr
                     : std::make_shared<DVServices::RootedApplicationContext>(root.string()));
}

/// The message bus, the application root and the signals are the process's own.
class OneAtATime {
public:
    OneAtATime() {
        if (std::exchange(s_isTaken, true)) {
            throw StartError("there is a host in this process already, and there can be only one");
        }
    }
    OneAtATime(const OneAtATime&) = delete;
    OneAtATime& operator=(const OneAtATime&) = delete;
    ~OneAtATime() { s_isTaken = false; }

private:
    static inline bool s_isTaken = false;
};

}  // namespace

class Host::Implementation {
public:
    explicit Implementation(const HostOptions& options);
    ~Implementation();

    std::string address() const { return m_door->address(); }
    int run();
    MainLoop& loop() { return m_loop; }
    void watchInput(int descriptor, std::function<void()> callable);

    std::function<void()> m_onPage;
    std::vector<std::function<void()>> m_onShutdown;

private:
    void pageIsThere(bool isNew);
    void openDueWindows();
    void lookAfterWindows();
    void startModule();
    void endModule();
    void shutDown();
    void closeDoor();

    // In the order of their needs: each uses those before it until it ends.
    const OneAtATime m_only;
    MainLoop m_loop;
    std::shared_ptr<InProcessBus> m_bus = installBus();
    PageListener m_pages;
    tdom::DocumentMirror m_mirror;
    std::optional<Module> m_module;
    std::unique_ptr<Door> m_door;
    std::map<int, std::shared_ptr<InputWatch>> m_inputs;
    bool m_looksAfterWindows = false;  // as soon as this turn is over
};

Host::Implementation::Implementation(const HostOptions& options)
    : m_pages([this](bool isNew) { pageIsThere(isNew); }, [this] { lookAfterWindows(); }),
      m_mirror([this](std::function<void()> call) { m_loop.post(std::move(call)); }) {
    log::setLevel(options.logLevel);
    if (options.loadModule) {
        m_module.emplace(options.module);
    }
    m_door = Door::open(m_loop.context(), options, [this] {
        log::write(log::Level::Error, "runtime", "the gateway is gone; the program ends");
        m_loop.quit(1);
    });
    m_loop.deliver(m_bus);
    setApplicationRoot(options.applicationRoot);
    startModule();
    DVAbstractWindow2::openDue();  // from here on windows wait
}

Host::Implementation::~Implementation() {
    endModule();
    m_bus->setWake({});
    setApplicationRoot({});
    MessageBus::install(nullptr);
}

// Posted, so that the library has dealt with the page's announcement before. What the program makes
// anew for the page has taken the place of what waited for it by the time that is opened.
void Host::Implementation::pageIsThere(bool isNew) {
    if (isNew) {
        m_mirror.forgetOthers(m_pages.page());
        m_loop.post([this] {
            if (m_onPage) {
                m_onPage();
            }
        });
    }
    openDueWindows();
}

void Host::Implementation::openDueWindows() {
    m_loop.post([] { DVAbstractWindow2::openDue(); });
}

// Perhaps a close request. Once a turn, since each window that is shown comes here, too.
void Host::Implementation::lookAfterWindows() {
    if (!std::exchange(m_looksAfterWindows, true)) {
        m_loop.post([this] { m_looksAfterWindows = false; });
        openDueWindows();
    }
}

void Host::Implementation::startModule() {
    if (m_module) {
        m_module->initialise();
        m_module->goOnline();
    }
}

void Host::Implementation::endModule() {
    if (m_module) {
        m_module->terminate();
    }
}

void Host::Implementation::watchInput(int descriptor, std::function<void()> callable) {
    const auto earlier = m_inputs.find(descriptor);
    if (earlier != m_inputs.end()) {
        earlier->second->end();
        m_inputs.erase(earlier);
    }
    if (callable) {
        auto watch = std::make_shared<InputWatch>(m_loop.context(), descriptor);
        watch->start(std::move(callable));
        m_inputs.emplace(descriptor, std::move(watch));
    }
}

int Host::Implementation::run() {
    const int exitCode = m_loop.run();
    shutDown();
    return exitCode;
}

void Host::Implementation::shutDown() {
    m_onPage = nullptr;
    for (const auto& input : std::exchange(m_inputs, {})) {
        input.second->end();
    }
    for (const auto& call : std::exchange(m_onShutdown, {})) {
        MainLoop::call(call);
    }
    endModule();
    for (int turn = 0; turn < s_lastDeliveries && m_bus->deliver() > 0; ++turn) {
    }
    closeDoor();
}

void Host::Implementation::closeDoor() {
    bool stopped = false;
    m_door->close([&stopped] { stopped = true; });
    m_loop.runUntil([&stopped] { return stopped; }, s_longestStop);
    // Whatever still waits holds a reference to what is about to go.
    m_door.reset();
}

Host::Host(const HostOptions& options)
    : m_implementation(std::make_unique<Implementation>(options)) {}

Host::~Host() = default;

std::string Host::address() const {
    return m_implementation->address();
}

void Host::onPage(std::function<void()> callable) {
    m_implementation->m_onPage = std::move(callable);
}

void Host::onShutdown(std::function<void()> callable) {
    m_implementation->m_onShutdown.push_back(std::move(callable));
}

void Host::post(std::function<void()> callable) {
    m_implementation->loop().post(std::move(callable));
}

void Host::post(const Owner& owner, std::function<void()> callable) {
    post(owner.whileAlive(std::move(callable)));
}

Timer Host::after(std::chrono::milliseconds delay, std::function<void()> callable) {
    return m_implementation->loop().after(delay, std::move(callable));
}

Timer Host::after(const Owner& owner, std::chrono::milliseconds delay,
                  std::function<void()> callable) {
    return after(delay, owner.whileAlive(std::move(callable)));
}

void Host::watchInput(int descriptor, std::function<void()> callable) {
    m_implementation->watchInput(descriptor, std::move(callable));
}

int Host::run() {
    return m_implementation->run();
}

void Host::quit(int exitCode) {
    m_implementation->loop().quit(exitCode);
}

}  // namespace DOVA::runtime
