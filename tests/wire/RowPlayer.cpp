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
const std::string s_window = s_root + "/page/${window}";

std::string compact(const QJsonArray& array) {
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

/// The same entries in an order that does not depend on theirs.
QJsonArray sorted(const QJsonArray& array) {
    std::vector<std::pair<std::string, QJsonValue>> entries;
    for (const QJsonValue entry : array) {
        entries.emplace_back(compact({entry}), entry);
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    QJsonArray result;
    for (const auto& entry : entries) {
        result.append(entry.second);
    }
    return result;
}

QJsonValue text(const std::string& value) {
    return QString::fromStdString(value);
}

}  // namespace

RowPlayer::RowPlayer(const WireRow& row) : m_row(row) {
    set();
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

void RowPlayer::set() {
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
    if (!row["client"].isNull()) {
        m_client.say(s_root,
                     "{\"clientReady\":\"" + row["client"].toString("page").toStdString() + "\"}");
    }
    const QJsonObject scene = row.contains("scene") ? row["scene"].toObject() : standardScene();
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
        if (listeners.isArray() ? listeners.toArray().contains(text(name))
                                : listeners.toBool(true)) {
            m_stage.listen(name);
        }
    }
    const QJsonArray handlers = m_row.content["handlers"].toArray();
    for (const QJsonValue handler : handlers) {
        const QJsonArray on = handler["on"].toArray();
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
        step(one.toObject());
    }
}

void RowPlayer::step(const QJsonObject& step) {
    perform(step["calls"].toArray());
    if (step.contains("text")) {
        m_client.publish(channel(step), wireText(step["text"], identifierOf()));
    }
    m_client.deliver();
    compare(step);
}

void RowPlayer::compare(const QJsonObject& step) {
    const bool anyOrder = step["anyOrder"].toBool(false);
    const auto order = [&](const QJsonArray& array) { return anyOrder ? sorted(array) : array; };
    EXPECT_EQ(compact(order(takeNotes())), compact(order(expectedNotes(step))));
    QJsonArray events;
    const QJsonArray written = step["events"].toArray();
    for (const QJsonValue event : written) {
        QJsonArray plain = event.toArray();
        if (plain.last().isObject()) {
            plain[plain.size() - 1] = text(wireText(plain.last(), identifierOf()));
        }
        events.append(plain);
    }
    EXPECT_EQ(compact(order(m_stage.takeEvents())), compact(order(events)));
    compareState(step["state"].toArray());
}

void RowPlayer::compareState(const QJsonArray& state) {
    for (const QJsonValue entry : state) {
        const std::string object = entry[0].toString().toStdString();
        const std::string question = entry[1].toString().toStdString();
        EXPECT_EQ(compact({ask(m_stage, object, question)}), compact({entry[2]}))
            << object << " " << question;
    }
}

QJsonArray RowPlayer::expectedNotes(const QJsonObject& step) const {
    QJsonArray notes;
    const QJsonArray sends = step["sends"].toArray();
    for (const QJsonValue sent : sends) {
        notes.append(QJsonArray{text(fillIn(s_window, identifierOf())),
                                text(wireText(sent, identifierOf()))});
    }
    const QJsonArray publishes = step["publishes"].toArray();
    for (const QJsonValue published : publishes) {
        notes.append(QJsonArray{text(wireText(published[0], identifierOf())),
                                text(wireText(published[1], identifierOf()))});
    }
    return notes;
}

QJsonArray RowPlayer::takeNotes() {
    QJsonArray notes;
    for (const RecordingClient::Note& note : m_client.take()) {
        notes.append(QJsonArray{text(note.first), text(note.second)});
    }
    return notes;
}

std::string RowPlayer::channel(const QJsonObject& step) const {
    const QString given = step["channel"].toString();
    return fillIn(given.isEmpty() ? s_window : given.toStdString(), identifierOf());
}

IdentifierOf RowPlayer::identifierOf() const {
    return [this](const std::string& name) { return m_stage.identifier(name); };
}

void RowPlayer::playPrefixes() {
    const QJsonObject step = m_row.steps().first().toObject();
    const std::string whole = wireText(step["text"], identifierOf());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        m_client.say(channel(step), whole.substr(0, length));
        EXPECT_EQ(compact(takeNotes()), "[]") << "after " << length << " bytes";
        EXPECT_EQ(compact(m_stage.takeEvents()), "[]") << "after " << length << " bytes";
    }
}

}  // namespace DOVA::test
