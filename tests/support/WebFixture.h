#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "RecordingClient.h"
#include "core/WebObjectLookup.h"
#include "core/WebObjectService2.h"
#include "toolkit/DVDialog2.h"

namespace DOVA::test {

/// The module started and online, which happens once in a process, and one client that has
/// announced itself and goes again after the test.
class WebFixture : public testing::Test {
protected:
    WebFixture();
    ~WebFixture() override;

    WebObjectService2& service() { return *WebObjectService2::instance(); }

    static std::string clientChannel();
    static std::string windowChannel(const DVObject& window);
    /// {"id":"...",<members>}
    static std::string message(const DVObject& object, const std::string& members);
    /// The text of one sent property, "name":value, with its keys in Qt's order.
    static std::string sent(const DVObject& object, const std::string& type,
                            const std::string& property);

    /// Shows a window and forgets what was published so far.
    void show(DVDialog2& window);
    /// The client sends one message on the channel of a window.
    void say(const DVObject& window, const DVObject& object, const std::string& members);

    /// Whether the thread that asks, or any other, holds the lock of all objects.
    static bool isObjectLockHeld();

    /// A request that nobody binds does nothing without a word.
    template <class... Requests>
    static void expectBoundOnce(const Requests&... requests) {
        for (const std::size_t count : {requests.numberOfConnections()...}) {
            EXPECT_EQ(count, 1u);
        }
    }

    RecordingClient client;
};

}  // namespace DOVA::test
