#include "Service.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <system_error>
#include <utility>

#include "AccessRules.h"
#include "LinkServer.h"
#include "log/Log.h"

namespace DOVA::serve {

namespace asio = boost::asio;
using asio::local::stream_protocol;

namespace {

/// A process that comes to the socket says who it is by then.
constexpr std::chrono::seconds s_helloTime{5};
constexpr std::chrono::seconds s_idleSteps{1};
/// Beside the socket: the keys of the programs.
constexpr const char* s_keys = "keys";

/// The process at the other end.
pid_t peerOf(link::MessageStream& stream) {
    ucred peer{};
    socklen_t size = sizeof peer;
    getsockopt(stream.socket().native_handle(), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    return peer.pid;
}

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::system_error(error, std::system_category(), what);
}

}  // namespace

/// A process that has come to the socket and not said yet who it is.
class Service::Comer final : public link::MessageStream::Listener,
                             public std::enable_shared_from_this<Comer> {
public:
    Comer(Service& service, link::LocalSocket socket)
        : m_service(service),
          m_timer(service.m_loop.get_executor()),
          m_stream(std::make_shared<link::MessageStream>(std::move(socket))) {}

    void start() {
        m_timer.expires_after(s_helloTime);
        m_timer.async_wait([self = shared_from_this()](boost::system::error_code error) {
            if (!error && self->m_stream) {
                self->m_stream->close();
            }
        });
        m_stream->listen(*this);
    }

    void message(const link::Message& message) override {
        const auto properties = link::message::readHello(message.rest);
        const auto stream = std::exchange(m_stream, nullptr);
        m_timer.cancel();
        if (message.kind != link::Message::Kind::Hello || !properties ||
            properties->count(link::hello::s_key) == 0) {
            return stream->close();
        }
        m_service.greet(properties->at(link::hello::s_key), stream);
    }

    void broken() override { m_timer.cancel(); }

private:
    Service& m_service;
    link::Timer m_timer;
    std::shared_ptr<link::MessageStream> m_stream;
};

Service::Service(asio::io_context& loop, Settings settings)
    : m_loop(loop),
      m_settings(std::move(settings)),
      m_acceptor(loop.get_executor()),
      m_idleTimer(loop.get_executor()),
      m_drainTimer(loop.get_executor()),
      m_gateway(loop, m_settings.gateway, *this) {}

Service::~Service() {
    for (const auto& [visitor, program] : m_programs) {
        program->abandon();
    }
    const std::filesystem::path socket = m_settings.socketFolder / "socket";
    std::error_code ignored;
    if (m_acceptor.is_open()) {
        std::filesystem::remove(socket, ignored);
    }
    if (m_ownsFolder) {
        std::filesystem::remove(m_settings.socketFolder / s_keys, ignored);
        std::filesystem::remove(m_settings.socketFolder, ignored);
    }
}

void Service::start() {
    readVisitors();
    openSocket();
    expectFormerPrograms();
    m_gateway.start();
    accept();
    watchIdle();
}

void Service::readVisitors() {
    std::vector<Visitors::Visitor> all;
    for (const std::string& name : m_settings.visitors) {
        const auto known = std::find_if(m_visitors.all().begin(), m_visitors.all().end(),
                                        [&](const auto& visitor) { return visitor.name == name; });
        all.push_back(known != m_visitors.all().end()
                          ? *known
                          : Visitors::Visitor{name, gateway::AccessRules::randomToken()});
    }
    if (!m_settings.visitorFile.empty()) {
        const auto more = Visitors::read(m_settings.visitorFile);
        all.insert(all.end(), more.begin(), more.end());
    }
    m_visitors.set(std::move(all));
}

void Service::reload() {
    try {
        readVisitors();
        log::write(log::Level::Info, "serve",
                   std::to_string(m_visitors.all().size()) + " visitors may come in");
    } catch (const std::exception& error) {
        log::write(log::Level::Error, "serve", error.what());
    }
}

/// Only this user, and root, may come to it.
void Service::openSocket() {
    if (m_settings.socketFolder.empty()) {
        std::string folder =
            (std::filesystem::temp_directory_path() / "dova-serve-XXXXXX").string();
        if (!mkdtemp(folder.data())) {
            fail("cannot make the folder " + folder, errno);
        }
        // Their user must find the socket; nobody may look for what else is there.
        chmod(folder.c_str(), m_settings.command.user.empty() ? 0700 : 0711);
        m_settings.socketFolder = folder;
        m_ownsFolder = true;
    }
    const std::string path = m_settings.socketFolder / "socket";
    try {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        m_acceptor.open(stream_protocol());
        m_acceptor.bind(stream_protocol::endpoint(path));
        chmod(path.c_str(), m_settings.command.user.empty() ? 0600 : 0666);
        m_acceptor.listen();
    } catch (const boost::system::system_error& error) {
        fail("cannot open the socket " + path, error.code().value());
    }
}

void Service::accept() {
    m_acceptor.async_accept([this](boost::system::error_code error, link::LocalSocket socket) {
        if (error == asio::error::operation_aborted) {
            return;
        }
        if (!error) {
            std::make_shared<Comer>(*this, std::move(socket))->start();
        }
        accept();
    });
}

void Service::greet(const std::string& key, std::shared_ptr<link::MessageStream> stream) {
    const auto found = m_keys.find(key);
    const auto program = found == m_keys.end() ? nullptr : found->second.lock();
    if (!program) {
        log::write(log::Level::Warning, "serve", "a process came to the socket without a good key");
        return stream->close();
    }
    const pid_t peer = peerOf(*stream);
    if (const auto time = program->attach(std::move(stream), peer)) {
        m_starts.add(*time);
    }
}

gateway::Entrance::Verdict Service::judge(std::string_view token) const {
    const auto visitor = m_visitors.nameOf(token);
    if (!visitor) {
        return Verdict::Stranger;
    }
    const auto found = m_programs.find(*visitor);
    const bool isThere = found != m_programs.end() && found->second->isRunning();
    return isThere || hasRoom() ? Verdict::Welcome : Verdict::Crowded;
}

std::size_t Service::running() const {
    return static_cast<std::size_t>(
        std::count_if(m_programs.begin(), m_programs.end(),
                      [](const auto& each) { return each.second->isRunning(); }));
}

std::shared_ptr<link::Program> Service::programOf(std::string_view token) {
    const std::string visitor = m_visitors.nameOf(token).value_or("");
    auto& program = m_programs[visitor];
    if (!program) {
        program = makeProgram(visitor, gateway::AccessRules::randomToken());
        noteKeys();
    }
    return program;
}

std::shared_ptr<VisitorProgram> Service::makeProgram(const std::string& visitor,
                                                     const std::string& key) {
    Command command = commandFor(m_settings.command, visitor);
    command.environment.emplace_back("DOVA_LINK", m_settings.socketFolder / "socket");
    command.environment.emplace_back("DOVA_LINK_KEY", key);
    auto program = std::make_shared<VisitorProgram>(m_loop, visitor, std::move(command),
                                                    m_settings.times, [this] { oneHasEnded(); });
    m_keys[key] = program;
    return program;
}

/// A service that was killed leaves its programs behind; the next one at the same folder finds them
/// by their keys, and nobody's session is lost. Theirs are the first words of the lines.
void Service::expectFormerPrograms() {
    std::ifstream lines(m_settings.socketFolder / s_keys);
    for (std::string key, visitor; lines >> key >> visitor;) {
        if (Visitors::isUsableName(visitor) && gateway::AccessRules::isUsableToken(key)) {
            m_programs[visitor] = makeProgram(visitor, key);
            m_programs[visitor]->expect();
        }
    }
}

/// Only this user may read it. What cannot be written costs a session when the service is killed,
/// and nothing now.
void Service::noteKeys() const {
    const std::filesystem::path file = m_settings.socketFolder / s_keys,
                                fresh = file.string() + "~";
    std::error_code error;
    {
        std::ofstream lines(fresh, std::ios::trunc);
        std::filesystem::permissions(fresh, std::filesystem::perms(0600), error);
        for (const auto& [key, program] : m_keys) {
            if (const auto known = program.lock()) {
                lines << key << ' ' << known->visitor() << '\n';
            }
        }
    }
    std::filesystem::rename(fresh, file, error);
    if (error) {
        log::write(log::Level::Warning, "serve", "cannot write " + file.string());
    }
}

void Service::watchIdle() {
    m_idleTimer.expires_after(s_idleSteps);
    m_idleTimer.async_wait([this](boost::system::error_code error) {
        if (error || !m_settings.times.idle) {
            return;
        }
        for (const auto& [visitor, program] : m_programs) {
            program->endIfIdle(link::Clock::now());
        }
        watchIdle();
    });
}

Metrics Service::metrics() const {
    Metrics all;
    all.visitors = m_visitors.all().size();
    all.programs = running();
    all.pages = pages();
    all.refusals = m_gateway.refusals();
    all.starts = m_starts;
    for (const auto& [visitor, program] : m_programs) {
        const link::RemoteProgram::Counts& passed = program->passed();
        all.passed.openings += passed.openings;
        all.passed.resumptions += passed.resumptions;
        all.passed.textsUp += passed.textsUp;
        all.passed.bytesUp += passed.bytesUp;
        all.passed.bytesDown += passed.bytesDown;
        all.faults += program->faults();
        if (program->isRunning()) {
            all.memory[visitor] = residentBytes(program->pid());
        }
    }
    return all;
}

std::size_t Service::pages() const {
    std::size_t count = 0;
    for (const auto& [visitor, program] : m_programs) {
        count += program->pages();
    }
    return count;
}

void Service::drain(std::chrono::milliseconds patience, std::function<void()> whenStopped) {
    m_isDraining = true;
    drained(link::Clock::now() + patience, std::move(whenStopped));
}

void Service::drained(link::Clock::time_point end, std::function<void()> whenStopped) {
    if (pages() == 0 || link::Clock::now() >= end) {
        return stop(std::move(whenStopped));
    }
    m_drainTimer.expires_at(std::min(end, link::Clock::now() + s_idleSteps));
    m_drainTimer.async_wait(
        [this, end, whenStopped = std::move(whenStopped)](boost::system::error_code error) mutable {
            if (!error) {
                drained(end, std::move(whenStopped));
            }
        });
}

void Service::stop(std::function<void()> whenStopped) {
    m_whenStopped = std::move(whenStopped);
    m_isDraining = true;
    m_idleTimer.cancel();
    m_drainTimer.cancel();
    for (const auto& [visitor, program] : m_programs) {
        program->stop();
    }
    oneHasEnded();
}

void Service::oneHasEnded() {
    if (m_whenStopped && running() == 0) {
        std::error_code ignored;
        std::filesystem::remove(m_settings.socketFolder / s_keys, ignored);
        m_acceptor.close();
        m_gateway.stop(std::exchange(m_whenStopped, nullptr));
    }
}

}  // namespace DOVA::serve
