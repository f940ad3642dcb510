#include <gtest/gtest.h>

#include <QJsonDocument>
#include <memory>
#include <vector>

#include "FrameReceiver.h"
#include "WireRows.h"
#include "session/RegistryFixture.h"
#include "support/JsonRows.h"

namespace DOVA::session {
namespace {

using test::WireRow;

/// Numbers that no test can count up to are for the codec alone.
constexpr double s_countable = 1000;

bool isUpward(const WireRow& row) {
    return row.content["direction"].toString() == "up";
}

/// The gateway writes life-cycle messages anew; all other texts pass as they are.
std::vector<std::string> asPublished(const QJsonArray& records) {
    std::vector<std::string> published;
    for (const QJsonValue record : records) {
        const std::string channel = test::text(record[1]), text = test::text(record[2]);
        const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text));
        published.push_back(channel + "=" +
                            (channel != "/dova2/web"
                                 ? text
                                 : document.toJson(QJsonDocument::Compact).toStdString()));
    }
    return published;
}

/// A session of the page "p1" that has handled and sent as many records as the row says.
class FramesTest : public RegistryFixture, public testing::WithParamInterface<WireRow> {
protected:
    void reach(int received, int sent) {
        for (int count = received; count > 0; --count) {
            session->take(session->received() + 1);
        }
        for (int count = sent; count > 0; --count) {
            say("/dova2/web/p1", "[]");
        }
        while (session->downward().next()) {
        }
    }

    /// The close code with which the frame is refused; 0 when it is not.
    int receive(const std::string& frame) {
        FrameReceiver receiver(*registry, session);
        const CloseReason* reason = receiver.begin(frame);
        if (!reason) {
            Throttle throttle(1000, 1000);
            reason = receiver.handle(throttle, 1000, {});
        }
        bus->deliver();
        return reason ? reason->code : 0;
    }

    NotingLink link;
    const std::shared_ptr<Session> session = registry->open("p1", {}, link).session;
};

TEST_P(FramesTest, areReadAsWritten) {
    const QJsonObject& row = GetParam().content;
    const std::string frame = test::wireText(row["frame"], [](const std::string&) { return 0u; });
    const QJsonArray records = row["records"].toArray();
    const auto parsed = FrameCodec::parse(frame);
    const bool isRefused = row.contains("close");
    if (!isRefused) {
        ASSERT_TRUE(parsed);
        EXPECT_EQ(parsed->acknowledged, row["acknowledged"].toDouble());
    }
    if (row["received"].toDouble() > s_countable) {
        EXPECT_EQ(parsed->sequence, records[0][0].toDouble());
        return;
    }
    reach(row["received"].toInt(), row["sent"].toInt());
    ASSERT_EQ(receive(frame), row["close"].toInt(0));
    if (!isRefused) {
        EXPECT_EQ(takeHeard(), asPublished(records));
        const double last =
            records.isEmpty() ? row["received"].toDouble() : records.last()[0].toDouble();
        EXPECT_EQ(session->received(), last);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, FramesTest, testing::ValuesIn(test::readRows({"frames"}, isUpward)));

}  // namespace
}  // namespace DOVA::session
