#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "examples/jsonpad/TemporaryFolder.h"
#include "messaging/ConnectorMessageService.h"
#include "runtime/Host.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"

namespace DOVA::runtime {

// One case only: the library starts once in a process.
TEST(HostWithLibraryTest, ShowsTheDialogThatAPageCallMakesAndHearsItsButton) {
    const jsonpad_test::TemporaryFolder folder;
    folder.write("index.html", "<!doctype html>");
    HostOptions options;
    options.pageFolder = folder / "";
    Host host(options);

    std::unique_ptr<DVDialog2> dialog;
    DVButton2* button = nullptr;
    int clicks = 0;
    host.onPage([&] {
        dialog = std::make_unique<DVDialog2>();
        button = &dialog->make<DVButton2>(u"Press");
        button->onClick([&] {
            ++clicks;
            host.quit();
        });
        dialog->show();
    });

    tdom::messaging::ConnectorMessageService page("test page");
    std::vector<std::string> shown;
    page.subscribe("/dova2/web/a", [&](const std::string& text) {
        shown.push_back(text);
        const std::string window = std::to_string(dialog->identifier());
        page.publish("/dova2/web/a/" + window, R"({"dialogReady":")" + window + R"("})");
        page.publish("/dova2/web/a/" + window, R"({"event":"onClick","id":")" +
                                                   std::to_string(button->identifier()) + R"("})");
    });
    page.publish("/dova2/web", R"({"clientReady":"a"})");
    host.run();

    EXPECT_THAT(shown, testing::ElementsAre(testing::HasSubstr(R"("label":"Press")")));
    EXPECT_EQ(clicks, 1);
    // The dialog is destroyed after the library has ended and before the host is.
}

}  // namespace DOVA::runtime
