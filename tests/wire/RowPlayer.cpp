#include "RowPlayer.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <algorithm>

#include "Operations.h"
#include "core/KorvidOnlineFlag.h"
#include "core/ModuleEntry.h"
#include "toolkit/ApplicationContext.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DpiScale.h"

namespace DOVA::test {

namespace {

const std::string s_root = RecordingClient::Root;
const QString s_window = QString::fromStdString(s_root + "/page/${window}");

/// Each entry in a line of its own, if need be in an order that does not depend on theirs.
std::vector<std::string> lines(const QJsonArray& entries, bool anyOrder = false) {
    std::vector<std::string> lines;
    for (const QJsonValue entry : entries) {
        lines.push_back(QJsonDocument({entry}).toJson(QJsonDocument::Compact).toStdString());
    }
    if (anyOrder) {
        std::sort(lines.begin(), lines.end());
    }
    return lines;
}

}  // namespace

RowPlayer::RowPlayer(const WireRow& row) : m_row(row) {
    startModule();
    setScene();
    listen();
    m_client.take();
    m_stage.takeEvents();
}

RowPlayer::~RowPlayer() {
    for (const std::string& name : m_stage.names()) {
        m_stage.destroy(name);
    }
    m_client.say(s_root, R"({"clientReady":"the end"})");
    m_client.say(s_root, R"({"clientDestroyed":"the end"})");
}

void RowPlayer::startModule() {
    initialize_dova2_web();
    // The front objects get no implementation of their own; the stage gives them theirs.
    DVFactory2::chooseBackend(StringID::setStringID("none"));
    const QJsonObject& row = m_row.content;
    setDpiScale(row["scale"].toDouble(1.0));
    const std::string root = row["applicationRoot"].toString().toStdString();
    DVServices::ServiceHolder::instance().setApplicationContext(
        root.empty() ? nullptr : std::make_shared<DVServices::RootedApplicationContext>(root));
    if (row["online"].toBool(true)) {
        web::KorvidOnlineFlag::set(true);
    }
    const std::string client = row["client"].toString("page").toStdString();
    if (!row["client"].isNull()) {
        m_client.say(s_root, "{\"clientReady\":\"" + client + "\"}");
    }
}

void RowPlayer::setScene() {
    const QJsonValue own = m_row.content["scene"];
    const QJsonObject scene = own.isObject() ? own.toObject() : standardScene();
    const QJsonArray objects = scene["objects"].toArray();
    for (const QJsonValue object : objects) {
        m_stage.add(object.toObject());
    }
    const QJsonArray shown = scene["show"].toArray();
    for (const QJsonValue window : shown) {
        test::perform(m_stage, {window, "show"});
    }
}

void RowPlayer::listen() {
    const QJsonValue listeners = m_row.content["listeners"];
    for (const std::string& name : m_stage.names()) {
        if (listeners.toBool(true) &&
            (!listeners.isArray() || listeners.toArray().contains(QString::fromStdString(name)))) {
            m_stage.listen(name);
        }
    }
    const QJsonArray handlers = m_row.content["handlers"].toArray();
    for (const QJsonValue handler : handlers) {
        const QJsonValue on = handler["on"];
        m_stage.react(on[0].toString().toStdString(), on[1].toString().toStdString(),
                      [this, calls = handler["calls"].toArray()] { perform(calls); });
    }
}

void RowPlayer::perform(const QJsonArray& calls) {
    for (const QJsonValue call : calls) {
        test::perform(m_stage, call.toArray());
    }
}

void RowPlayer::play() {
    int number = 0;
    const QJsonArray steps = m_row.steps();
    for (const QJsonValue one : steps) {
        SCOPED_TRACE("step " + std::to_string(++number));
        const QJsonObject step = one.toObject();
        perform(step["calls"].toArray());
        if (step.contains("text")) {
            m_client.publish(channel(step), wireText(step["text"], identifierOf()));
        }
        m_client.deliver();
        compare(step);
    }
}

void RowPlayer::playPrefixes() {
    const QJsonObject step = m_row.steps().first().toObject();
    const std::string whole = wireText(step["text"], identifierOf());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(std::to_string(length) + " bytes");
        m_client.say(channel(step), whole.substr(0, length));
        compare({});
    }
}

void RowPlayer::compare(const QJsonObject& step) {
    const bool anyOrder = step["anyOrder"].toBool(false);
    QJsonArray notes;
    for (const auto& [address, text] : m_client.take()) {
        notes.append(QJsonArray{QString::fromStdString(address), QString::fromStdString(text)});
    }
    QJsonArray expected = step["publishes"].toArray();
    const QJsonArray sends = step["sends"].toArray();
    for (const QJsonValue sent : sends) {
        expected.append(QJsonArray{s_window, sent});
    }
    EXPECT_EQ(lines(notes, anyOrder), lines(filledIn(expected), anyOrder));
    const QJsonArray events = step["events"].toArray();
    EXPECT_EQ(lines(m_stage.takeEvents(), anyOrder), lines(filledIn(events), anyOrder));
    const QJsonArray state = step["state"].toArray();
    for (const QJsonValue entry : state) {
        const std::string object = entry[0].toString().toStdString();
        const std::string question = entry[1].toString().toStdString();
        EXPECT_EQ(lines({ask(m_stage, object, question)}), lines({entry[2]}))
            << object << " " << question;
    }
}

QJsonArray RowPlayer::filledIn(const QJsonArray& entries) const {
    QJsonArray filled;
    for (const QJsonValue entry : entries) {
        QJsonArray members;
        const QJsonArray written = entry.toArray();
        for (const QJsonValue member : written) {
            // UTF-8 has no half pairs, so a text that needs no filling stays as it is.
            const bool isPlain =
                !member.isObject() && !member.isArray() && !member.toString().contains("${");
            members.append(isPlain ? member
                                   : QString::fromStdString(wireText(member, identifierOf())));
        }
        filled.append(members);
    }
    return filled;
}

std::string RowPlayer::channel(const QJsonObject& step) const {
    return fillIn(step["channel"].toString(s_window).toStdString(), identifierOf());
}

IdentifierOf RowPlayer::identifierOf() const {
    return [this](const std::string& name) { return m_stage.identifier(name); };
}

}  // namespace DOVA::test
