#include <gtest/gtest.h>

#include <QJsonDocument>
#include <memory>
#include <vector>

#include "FrameReceiver.h"
#include "PageLink.h"
#include "SessionRegistry.h"
#include "WireRows.h"
#include "messaging/InProcessBus.h"

namespace DOVA::gateway {
namespace {

using test::WireRow;

/// Numbers that no test can count up to are for the codec alone.
constexpr double s_countable = 1000;

bool isUpward(const WireRow& row) {
    return row.content["direction"].toString() == "up";
}

/// The gateway writes life-cycle messages anew; all other texts pass as they are.
QJsonArray asPublished(const QJsonArray& records) {
    QJsonArray published;
    for (const QJsonValue record : records) {
        const QJsonDocument text = QJsonDocument::fromJson(record[2].toString().toUtf8());
        const bool anew = record[1].toString() == "/dova2/web";
        const QString written = QString::fromUtf8(text.toJson(QJsonDocument::Compact));
        published.append(QJsonArray{record[1], anew ? written : record[2].toString()});
    }
    return published;
}

struct Link : PageLink {
    void textsWait() override {}
    void end(const CloseReason&) override {}
};

/// A session of the page "p1" that has handled and sent as many records as the row says.
class FramesTest : public testing::TestWithParam<WireRow> {
protected:
    void reach(int received, int sent) {
        for (int count = received; count > 0; --count) {
            session->take(session->received() + 1);
        }
        for (int count = sent; count > 0; --count) {
            bus->publish(program, "/dova2/web/p1", "[]");
        }
        bus->deliver();
        while (session->downward().next()) {
        }
        bus->subscribeTree(program, "", [this](auto& channel, auto& text) {
            heard.append(QJsonArray{QString::fromStdString(channel), QString::fromStdString(text)});
        });
    }

    /// The close code with which the frame is refused; 0 when it is not.
    int receive(const std::string& frame) {
        FrameReceiver receiver(registry, session);
        const CloseReason* reason = receiver.begin(frame);
        if (!reason) {
            Throttle throttle(1000, 1000);
            reason = receiver.handle(throttle, 1000, {});
        }
        bus->deliver();
        return reason ? reason->code : 0;
    }

    const std::shared_ptr<tdom::messaging::InProcessBus> bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId program = bus->attach("program");
    SessionRegistry registry{bus, GatewayOptions()};
    Link link;
    const std::shared_ptr<Session> session = registry.open("p1", {}, link).session;
    QJsonArray heard;
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
        EXPECT_EQ(heard, asPublished(records));
        const double last =
            records.isEmpty() ? row["received"].toDouble() : records.last()[0].toDouble();
        EXPECT_EQ(session->received(), last);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, FramesTest, testing::ValuesIn(test::readRows({"frames"}, isUpward)));

}  // namespace
}  // namespace DOVA::gateway
