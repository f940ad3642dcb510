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

std::vector<WireRow> upwardRows(bool countable) {
    std::vector<WireRow> all;
    for (WireRow& row : test::readRows("frames")) {
        const bool up = row.content["direction"].toString() == "up";
        if (up && (row.content["received"].toDouble() <= s_countable) == countable) {
            all.push_back(std::move(row));
        }
    }
    return all;
}

std::string frameOf(const WireRow& row) {
    return test::wireText(row.content["frame"], [](const std::string&) { return 0u; });
}

/// The gateway writes life-cycle messages anew; all other texts pass as they are.
QJsonValue asPublished(const QJsonValue& channel, const QJsonValue& text) {
    const QJsonDocument parsed = QJsonDocument::fromJson(text.toString().toUtf8());
    return channel.toString() == "/dova2/web"
               ? QJsonValue(QString::fromUtf8(parsed.toJson(QJsonDocument::Compact)))
               : text;
}

struct Link : PageLink {
    void textsWait() override {}
    void end(const CloseReason&) override {}
};

/// A session of the page "p1" that has handled and sent as many records as the row says.
class FramesTest : public testing::TestWithParam<WireRow> {
protected:
    FramesTest() {
        const QJsonObject& row = GetParam().content;
        for (int count = row["received"].toInt(); count > 0; --count) {
            session->take(session->received() + 1);
        }
        for (int count = row["sent"].toInt(); count > 0; --count) {
            bus->publish(program, "/dova2/web/p1", "[]");
        }
        bus->deliver();
        while (session->downward().next()) {
        }
        bus->subscribeTree(program, "", [this](auto& channel, auto& text) {
            heard.append(QJsonArray{QString::fromStdString(channel), QString::fromStdString(text)});
        });
    }

    const CloseReason* receive(const std::string& frame) {
        FrameReceiver receiver(registry, session);
        const CloseReason* reason = receiver.begin(frame);
        if (!reason) {
            reason = receiver.handle(receiver.pending());
        }
        bus->deliver();
        return reason;
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
    const std::string frame = frameOf(GetParam());
    const CloseReason* reason = receive(frame);
    if (row.contains("close")) {
        ASSERT_NE(reason, nullptr);
        EXPECT_EQ(reason->code, row["close"].toInt());
        return;
    }
    ASSERT_EQ(reason, nullptr) << reason->text;
    EXPECT_EQ(FrameCodec::parse(frame)->acknowledged, row["acknowledged"].toDouble());
    const QJsonArray records = row["records"].toArray();
    QJsonArray expected;
    for (const QJsonValue record : records) {
        expected.append(QJsonArray{record[1], asPublished(record[1], record[2])});
    }
    EXPECT_EQ(heard, expected);
    const double last =
        records.isEmpty() ? row["received"].toDouble() : records.last()[0].toDouble();
    EXPECT_EQ(session->received(), last);
}

INSTANTIATE_TEST_SUITE_P(Rows, FramesTest, testing::ValuesIn(upwardRows(true)));

class LargeNumberFramesTest : public testing::TestWithParam<WireRow> {};

TEST_P(LargeNumberFramesTest, areReadAsWritten) {
    const QJsonObject& row = GetParam().content;
    const std::string frame = frameOf(GetParam());
    const auto parsed = FrameCodec::parse(frame);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->sequence, row["records"][0][0].toDouble());
    EXPECT_EQ(parsed->acknowledged, row["acknowledged"].toDouble());
}

INSTANTIATE_TEST_SUITE_P(Rows, LargeNumberFramesTest, testing::ValuesIn(upwardRows(false)));

}  // namespace
}  // namespace DOVA::gateway
