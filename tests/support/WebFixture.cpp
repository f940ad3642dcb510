#include "WebFixture.h"

#include <future>
#include <mutex>

#include "core/KorvidOnlineFlag.h"
#include "core/ModuleEntry.h"

namespace DOVA::test {

WebFixture::WebFixture() {
    initialize_dova2_web();
    web::KorvidOnlineFlag::set(true);
    client.say(RecordingClient::Root, R"({"clientReady":"page"})");
    client.take();
}

WebFixture::~WebFixture() {
    client.say(RecordingClient::Root, R"({"clientDestroyed":"page"})");
}

std::string WebFixture::clientChannel() {
    return std::string(RecordingClient::Root) + "/page";
}

std::string WebFixture::windowChannel(const DVObject& window) {
    return clientChannel() + "/" + std::to_string(window.identifier());
}

std::string WebFixture::message(const DVObject& object, const std::string& members) {
    return "{\"id\":\"" + std::to_string(object.identifier()) + "\"," + members + "}";
}

std::string WebFixture::sent(const DVObject& object, const std::string& type,
                             const std::string& property) {
    // Qt writes keys in alphabetical order.
    const std::string id = "\"id\":\"" + std::to_string(object.identifier()) + "\"";
    const std::string kind = "\"type\":\"" + type + "\"";
    const std::string key = property.substr(1, property.find('"', 1) - 1);
    return key < "id"     ? "[{" + property + "," + id + "," + kind + "}]"
           : key < "type" ? "[{" + id + "," + property + "," + kind + "}]"
                          : "[{" + id + "," + kind + "," + property + "}]";
}

void WebFixture::show(DVDialog2& window) {
    window.show();
    client.take();
}

void WebFixture::say(const DVObject& window, const DVObject& object, const std::string& members) {
    client.say(windowChannel(window), message(object, members));
}

// Another thread has to try: the lock lets its owner in again.
bool WebFixture::isObjectLockHeld() {
    std::future<bool> tried = std::async(std::launch::async, [] {
        return std::unique_lock(DVObject::m_lock, std::try_to_lock).owns_lock();
    });
    return !tried.get();
}

}  // namespace DOVA::test
