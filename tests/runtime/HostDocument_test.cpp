#include "HostFixture.h"
#include "model/Text.h"

namespace DOVA::runtime {
namespace {

using testing::ElementsAre;

class HostDocumentTest : public HostFixture {};

TEST_F(HostDocumentTest, aTurnOfTheLoopIsOnePatch) {
    start();
    const auto model = pf::zero::Model::create({});
    const auto text = tdom::Text::create(model);
    const std::string uuid = text->getUuid().toString();
    tdom::messaging::ConnectorMessageService page("test page");
    Events heard;
    page.subscribe("/tdom", [&](const std::string& message) {
        heard.push_back(message);
        if (heard.size() > 1) {
            return host->quit();
        }
        text->setText(u"a");
        text->setVisible(false);
        text->setText(u"b");
    });
    page.publish("/tdom", R"({"snapshot":"page"})");
    host->run();
    EXPECT_THAT(heard,
                ElementsAre(R"({"version":0,"snapshot":{")" + uuid + R"(":{"type":"Text"}}})",
                            R"({"version":1,"patch":[{"op":"add","path":"/)" + uuid +
                                R"(/text","value":"b"},{"op":"add","path":"/)" + uuid +
                                R"(/visible","value":false}]})"));
}

}  // namespace
}  // namespace DOVA::runtime
