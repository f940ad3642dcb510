// The mirror of the model document: from a change of an element to the patch handed to the bus,
// against building and writing that patch with Qt's JSON alone.

#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <memory>
#include <utility>
#include <vector>

#include "CountingBus.h"
#include "model/ComboBox.h"
#include "model/DocumentMirror.h"
#include "model/MessageService.h"
#include "model/Text.h"

namespace {

const std::u16string s_texts[2] = {u"first text", u"other text"};

/// A model with a mirror, perhaps one that a page has asked, and a main loop of which each turn
/// ends when told so.
class Mirrored {
public:
    explicit Mirrored(bool isAsked) {
        if (isAsked) {
            bench::CountingBus::instance().deliver(tdom::tdom_channel, R"({"snapshot":"bench"})");
            endTurn();
        }
    }

    void endTurn() {
        for (const auto& call : std::exchange(m_later, {})) {
            call();
        }
    }

    pf::zero::Ref<pf::zero::Model> model = pf::zero::Model::create({});

private:
    struct Installed {
        Installed() { bench::CountingBus::instance(); }
    };

    Installed m_bus;  // first: the mirror attaches to it
    std::vector<std::function<void()>> m_later;
    tdom::DocumentMirror m_mirror{
        [this](std::function<void()> call) { m_later.push_back(std::move(call)); }};
};

QString pathOf(const char* property) {
    return QString::fromStdString("/" + pf::zero::Uuid::generate().toString() + property);
}

QJsonObject operation(const char* name, const QString& path, const QJsonValue& value) {
    QJsonObject made;
    made.insert(QStringLiteral("op"), QLatin1String(name));
    made.insert(QStringLiteral("path"), path);
    if (!value.isUndefined()) {
        made.insert(QStringLiteral("value"), value);
    }
    return made;
}

void writeFloor(const QJsonArray& operations) {
    QJsonObject message;
    message.insert(QStringLiteral("version"), 1);
    message.insert(QStringLiteral("patch"), operations);
    benchmark::DoNotOptimize(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

void patchFloor(benchmark::State& state) {
    const QString path = pathOf("/text");
    const QString texts[2] = {QString::fromStdU16String(s_texts[0]),
                              QString::fromStdU16String(s_texts[1])};
    std::size_t turn = 0;
    for (auto _ : state) {
        writeFloor({operation("replace", path, texts[++turn % 2])});
    }
}
BENCHMARK(patchFloor);

void patchMirrored(benchmark::State& state) {
    Mirrored mirrored(true);
    const auto text = tdom::Text::create(mirrored.model);
    const std::size_t before = bench::CountingBus::instance().texts;
    std::size_t turn = 0;
    for (auto _ : state) {
        text->setText(s_texts[++turn % 2]);
        mirrored.endTurn();
    }
    if (bench::CountingBus::instance().texts - before != turn) {
        state.SkipWithError("not every turn sent a patch");
    }
}
BENCHMARK(patchMirrored);

void writeTexts(benchmark::State& state, const tdom::Text& text) {
    std::size_t turn = 0;
    for (auto _ : state) {
        text->setText(s_texts[++turn % 2]);
    }
}

void writeWithoutMirror(benchmark::State& state) {
    const auto model = pf::zero::Model::create({});
    writeTexts(state, tdom::Text::create(model));
}
BENCHMARK(writeWithoutMirror);

void writeNobodyAsked(benchmark::State& state) {
    const Mirrored mirrored(false);
    writeTexts(state, tdom::Text::create(mirrored.model));
}
BENCHMARK(writeNobodyAsked);

const std::u16string s_item = u"an item of the list";

std::vector<std::u16string> items(std::int64_t count) {
    return std::vector<std::u16string>(static_cast<std::size_t>(count), s_item);
}

/// One item comes at the end of a long list, and goes again in the next turn.
void appendItem(benchmark::State& state) {
    Mirrored mirrored(true);
    const auto box = tdom::ComboBox::create(mirrored.model);
    auto& list = box->getItemsMutable();
    list.insert(0, items(state.range(0)));
    mirrored.endTurn();
    for (auto _ : state) {
        list.push_back(u"new");
        mirrored.endTurn();
        list.erase(list.size() - 1);
        mirrored.endTurn();
    }
}
BENCHMARK(appendItem)->Arg(10)->Arg(10000)->Arg(100000);

/// The three patches of fillInsertClear.
void fillInsertClearFloor(benchmark::State& state) {
    const QString path = pathOf("/entries");
    const QString item = QString::fromStdU16String(s_item);
    const std::int64_t middle = state.range(0) / 2;
    for (auto _ : state) {
        QJsonArray whole;
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            whole.append(item);
        }
        writeFloor({operation("add", path, whole)});
        QJsonArray single;
        for (std::int64_t i = middle; i < middle + state.range(0) / 10; ++i) {
            single.append(operation("add", path + '/' + QString::number(i), item));
        }
        writeFloor(single);
        writeFloor({operation("remove", path, QJsonValue::Undefined)});
    }
}
BENCHMARK(fillInsertClearFloor)->RangeMultiplier(10)->Range(10, 100000);

/// Many items come into an empty list, as many into the middle of it, and all of them go.
void fillInsertClear(benchmark::State& state) {
    Mirrored mirrored(true);
    const auto box = tdom::ComboBox::create(mirrored.model);
    auto& list = box->getItemsMutable();
    const auto all = items(state.range(0));
    const auto some = items(state.range(0) / 10);
    for (auto _ : state) {
        list.insert(0, all);
        mirrored.endTurn();
        list.insert(list.size() / 2, some);
        mirrored.endTurn();
        list.clear();
        mirrored.endTurn();
    }
}
BENCHMARK(fillInsertClear)->RangeMultiplier(10)->Range(10, 100000);

void snapshotFloor(benchmark::State& state) {
    std::vector<QString> uuids;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        uuids.push_back(QString::fromStdString(pf::zero::Uuid::generate().toString()));
    }
    const QString text = QString::fromStdU16String(s_texts[0]);
    for (auto _ : state) {
        QJsonObject document;
        for (const QString& uuid : uuids) {
            QJsonObject element;
            element.insert(QStringLiteral("type"), QStringLiteral("Text"));
            element.insert(QStringLiteral("text"), text);
            document.insert(uuid, element);
        }
        QJsonObject message;
        message.insert(QStringLiteral("version"), 0);
        message.insert(QStringLiteral("snapshot"), document);
        benchmark::DoNotOptimize(QJsonDocument(message).toJson(QJsonDocument::Compact));
    }
}
BENCHMARK(snapshotFloor)->Arg(1000)->Arg(10000);

/// What a page that comes late gets of as many elements.
void snapshot(benchmark::State& state) {
    Mirrored mirrored(true);
    std::vector<tdom::Text> texts;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        texts.push_back(tdom::Text::create(mirrored.model));
        texts.back()->setText(s_texts[0]);
    }
    mirrored.endTurn();
    for (auto _ : state) {
        bench::CountingBus::instance().deliver(tdom::tdom_channel, R"({"snapshot":"bench"})");
        mirrored.endTurn();
    }
}
BENCHMARK(snapshot)->Arg(1000)->Arg(10000);

}  // namespace
