#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "host/ribo/COSNamespace.h"
#include "host/ribo/factory/TypeOf.h"
#include "support/RecordingClient.h"
#include "support/RowNames.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"

namespace DOVA::test {
namespace {

using testing::IsEmpty;

/// The module as a host has it: loaded by path, reached by name.
class LoadedModule {
public:
    LoadedModule() {
        entry<void()>("KVInitialize_dova2_web")();
        entry<bool(bool)>("_ZN4DOVA3web16KorvidOnlineFlag3setEb")(true);
    }

    void terminate() { entry<void()>("KVTerminate_dova2_web")(); }
    void unload() { dlclose(std::exchange(m_handle, nullptr)); }
    static bool isMapped() {
        void* handle = dlopen(MODULE, RTLD_NOW | RTLD_NOLOAD);
        return handle && dlclose(handle) == 0;
    }

private:
    template <class Signature>
    Signature* entry(const char* name) {
        return reinterpret_cast<Signature*>(dlsym(m_handle, name));
    }

    void* m_handle = dlopen(MODULE, RTLD_NOW | RTLD_LOCAL);
};

/// A window with something of everything in it, that a page shows.
struct Form {
    explicit Form(RecordingClient& client) {
        layout.addWidget(&button);
        layout.addWidget(&edit);
        layout.addWidget(&combo);
        layout.addWidget(&tabs);
        tabs.addTab(&page);
        window.setLayout(&layout);
        window.onCloseRequest([this] { ++calls; });
        button.onClick([this] { ++calls; });
        client.say(RecordingClient::Root, R"({"clientReady":"page"})");
        client.take();
        window.show();
    }
    std::string channel() const { return "/dova2/web/page/" + std::to_string(window.identifier()); }

    DVDialog2 window;
    DVBoxLayout2 layout;
    DVButton2 button;
    DVEdit2 edit;
    DVComboBox2 combo{nullptr, {u"a", u"b"}};
    DVTabContainer2 tabs;
    DVTab2 page;
    int calls = 0;
};

struct Ending {
    const char* name;
    bool terminates;
};
using test::operator<<;  // NOLINT(misc-unused-using-decls): GoogleTest prints rows with it

class UnloadingTest : public testing::TestWithParam<Ending> {};

/// The next front object that was made or destroyed jumped into code that was gone.
TEST_P(UnloadingTest, leavesNobodyWithAPointerIntoTheModule) {
    RecordingClient client;
    std::unique_ptr<Form> former;
    for (int times = 0; times < 3; ++times) {
        LoadedModule module;
        auto form = std::make_unique<Form>(client);
        EXPECT_EQ(client.take().at(0).first, "/dova2/web/page");
        const std::string click =
            "{\"id\":\"" + std::to_string(form->button.identifier()) + "\",\"event\":\"onClick\"}";
        client.say(form->channel(), click);
        EXPECT_EQ(form->calls, 1);
        former.reset();  // of an earlier module
        if (GetParam().terminates) {
            module.terminate();
        }
        module.unload();
        ASSERT_FALSE(LoadedModule::isMapped());
        client.take();
        EXPECT_EQ(DVFactory2::current(), nullptr);
        EXPECT_EQ(ribo::COSNamespace::getNamespace(ribo::internal::makeInterned("dova")), nullptr);
        form->button.setLabel(u"late");
        form->combo.addItems({u"c"});
        form->tabs.setTabsClosable(true);
        form->window.showNormal();
        form->window.setTitle(u"late");
        client.say(form->channel(), click);
        client.say(RecordingClient::Root, R"({"clientDestroyed":"page"})");
        DVButton2 born(&form->window);
        born.setLabel(u"late");
        EXPECT_EQ(form->calls, 1);
        EXPECT_THAT(client.take(), IsEmpty());
        EXPECT_THAT(form->window.children(true), IsEmpty());
        former = std::move(form);
    }
}

INSTANTIATE_TEST_SUITE_P(Endings, UnloadingTest,
                         testing::Values(Ending{"terminated", true}, Ending{"justClosed", false}),
                         RowName());

/// Its window wrote "close" with texts that were destroyed before it.
TEST(ProcessEndTest, aStaticObjectsWindowGoesAfterTheModule) {
    const auto child = [] {
        static std::unique_ptr<Form> kept;
        static RecordingClient client;
        const LoadedModule module;
        kept = std::make_unique<Form>(client);
        std::exit(0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(UnloadingWithValuesTest, waitsForThemToGo) {
    LoadedModule module;
    host::ArrayPointer value(kaCreateObject(
        ribo::factory::makeInstance(ribo::internal::makeInterned("dova.web.JSONArray"))));
    module.terminate();
    module.unload();
    host::ArrayPointer copy(kaDuplicateArray(value.get()));
    value.reset();
    EXPECT_EQ(kaGetObject(copy.get())->className(), "dova.web.JSONArray");
    EXPECT_TRUE(LoadedModule::isMapped());
    copy.reset();
    EXPECT_FALSE(LoadedModule::isMapped());
}

}  // namespace
}  // namespace DOVA::test
