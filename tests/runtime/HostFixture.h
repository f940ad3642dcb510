#pragma once

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "FakeModule.h"
#include "messaging/ConnectorMessageService.h"
#include "runtime/Host.h"
#include "runtime/StartError.h"
#include "support/TemporaryFolder.h"

namespace DOVA::runtime {

/// A host on the fake module, with a page folder of its own.
class HostFixture : public testing::Test {
protected:
    using Events = std::vector<std::string>;

    HostFixture() : m_events(loadedEvents()) {
        m_events.clear();
        folder.write("index.html", "<!doctype html>");
        options.module = FAKE_MODULE;
        options.pageFolder = folder / "";
    }

    void start() { host = std::make_unique<Host>(options); }

    /// Why it does not start.
    std::string refusal() {
        try {
            start();
        } catch (const StartError& error) {
            return error.what();
        }
        return "it started";
    }

    void note(const std::string& event) { m_events.push_back(event); }
    Events& events() { return m_events; }

    /// Publishes as pages do, through the gateway; when all of it has been dealt with, ends run().
    int runThrough(const std::vector<std::string>& rootTexts) {
        tdom::messaging::ConnectorMessageService gateway("test gateway");
        tdom::messaging::ConnectorMessageService last("test end");
        last.subscribe("/test/end", [this](const std::string&) { host->quit(); });
        for (const std::string& text : rootTexts) {
            gateway.publish("/dova2/web", text);
        }
        gateway.publish("/test/end", "");
        return host->run();
    }

    HostOptions options;
    std::unique_ptr<Host> host;
    const test::TemporaryFolder folder;

private:
    static Events& loadedEvents() {
        void* module = dlopen(FAKE_MODULE, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        auto find = reinterpret_cast<decltype(&fakeModuleEvents)>(
            module ? dlsym(module, "fakeModuleEvents") : nullptr);
        if (!find) {
            throw std::runtime_error("the fake module cannot be loaded");
        }
        return *find();
    }

    Events& m_events;
};

}  // namespace DOVA::runtime
