// The JSON functions against the plain Qt calls that they rest on, and edits of large values.

#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>

#include "core/ModuleEntry.h"
#include "host/ribo/OverloadSet.h"
#include "scripting/HostTypes.h"
#include "scripting/JSONArrayFunctions.h"
#include "scripting/JSONObjectFunctions.h"

namespace {

using namespace DOVA::web;

/// A document of about so many bytes, as an array and as an object: records with numbers, texts,
/// and arrays and objects inside.
struct Document {
    explicit Document(int bytes) {
        QString elements;
        for (int i = 0; elements.size() < bytes - 20; ++i) {
            elements += QStringLiteral(
                            "%1{\"id\":%2,\"name\":\"Record number %2\",\"size\":%3,\"tags\":"
                            "[\"some\",\"words\"],\"place\":{\"x\":12.5,\"y\":-3},\"ok\":true,"
                            "\"text\":\"A sentence or two that say what the record is for.\"}")
                            .arg(i > 0 ? "," : "")
                            .arg(i)
                            .arg(i * 1.25);
        }
        arrayText = "[" + elements + "]";
        objectText = "{\"records\":[" + elements + "]}";
        escapedText = QString(arrayText).replace("\":", "\\u0073\":");  // at each key's end
        escapedU16 = escapedText.toStdU16String();
        arrayU16 = arrayText.toStdU16String();
        objectU16 = objectText.toStdU16String();
        array = QJsonDocument::fromJson(arrayText.toUtf8()).array();
        object = QJsonDocument::fromJson(objectText.toUtf8()).object();
        arrayInArray = QJsonArray{1, array};
        objectInObject = QJsonObject{{"a", object}};
    }

    static const Document& ofBytes(int bytes) {
        static std::map<int, Document> documents;
        return documents.try_emplace(bytes, bytes).first->second;
    }

    QString arrayText, objectText, escapedText;
    std::u16string arrayU16, objectU16, escapedU16;
    QJsonArray array, arrayInArray;
    QJsonObject object, objectInObject;
};

QJsonArray plainArray(const QString& text) {
    return QJsonDocument::fromJson(text.toLocal8Bit()).array();
}

QJsonObject plainObject(const QString& text) {
    return QJsonDocument::fromJson(text.toLocal8Bit()).object();
}

template <class Value>
std::u16string plainText(const Value& value, QJsonDocument::JsonFormat format) {
    return QString::fromLocal8Bit(QJsonDocument(value).toJson(format)).toStdU16String();
}

std::vector<std::u16string> plainKeys(const QJsonObject& object) {
    std::vector<std::u16string> keys;
    for (const QString& key : object.keys()) {
        keys.push_back(key.toStdU16String());
    }
    return keys;
}

/// An array and an object of so many members.
struct Values {
    explicit Values(int count) {
        for (int i = 0; i < count; ++i) {
            array.append(i);
            object.insert(QStringLiteral("key %1").arg(i), i);
        }
        key = QStringLiteral("key %1").arg(count / 2);
        keyU16 = key.toStdU16String();
    }

    static Values& ofSize(int count) {
        static std::map<int, Values> values;
        return values.try_emplace(count, count).first->second;
    }

    QJsonArray array;
    QJsonObject object;
    QString key;
    std::u16string keyU16;
};

/// A function of the library, and the plain Qt calls that it rests on.
template <class Given>
struct Pair {
    const char* name;
    void (*ours)(Given& with);
    void (*floor)(Given& with);
};

template <class Value>
void keep(const Value& value) {
    benchmark::DoNotOptimize(&value);
    benchmark::ClobberMemory();
}

constexpr auto s_indented = QJsonDocument::Indented;
constexpr auto s_compact = QJsonDocument::Compact;

QJsonArray small() {
    return {1, 2};
}

#define DO(expression) [](auto& with) { keep((expression)); }
#define EDIT(value, edit)    \
    [](auto& with) {         \
        auto edited = value; \
        edit;                \
        keep(edited);        \
    }

const Pair<const Document> s_documentPairs[] = {
    {"arrayFromJSON", DO(arrayFromJSON(with.arrayU16)), DO(plainArray(with.arrayText))},
    {"escapedKeysFromJSON", DO(arrayFromJSON(with.escapedU16)), DO(plainArray(with.escapedText))},
    {"objectFromJSON", DO(objectFromJSON(with.objectU16)), DO(plainObject(with.objectText))},
    {"arrayInsertFromJSON", EDIT(small(), arrayInsertFromJSON(edited, 1, with.arrayU16)),
     EDIT(small(), edited.insert(1, plainArray(with.arrayText)))},
    {"arrayAppendFromJSON", EDIT(small(), arrayAppendFromJSON(edited, with.arrayU16)),
     EDIT(small(), edited.append(plainArray(with.arrayText)))},
    {"arrayPrependFromJSON", EDIT(small(), arrayPrependFromJSON(edited, with.arrayU16)),
     EDIT(small(), edited.prepend(plainArray(with.arrayText)))},
    {"arrayReplaceFromJSON", EDIT(small(), arrayReplaceFromJSON(edited, 1, with.arrayU16)),
     EDIT(small(), edited.replace(1, plainArray(with.arrayText)))},
    {"arrayContainsFromJSON", DO(arrayContainsFromJSON(with.arrayInArray, with.arrayU16)),
     DO(with.arrayInArray.contains(plainArray(with.arrayText)))},
    {"objectInsertFromJSON",
     EDIT(QJsonObject(), objectInsertFromJSON(edited, u"a", with.objectU16)),
     EDIT(QJsonObject(), edited.insert("a", plainObject(with.objectText)))},
    {"arrayToJSON", DO(arrayToJSON(with.array, JSONFormat::Compact)),
     DO(plainText(with.array, s_compact))},
    {"arrayToJSONIndented", DO(arrayToJSONIndented(with.array)),
     DO(plainText(with.array, s_indented))},
    {"arrayValueToJSON", DO(arrayValueToJSON(with.arrayInArray, 1, JSONFormat::Compact)),
     DO(plainText(with.arrayInArray.at(1).toArray(), s_compact))},
    {"arrayValueToJSONIndented", DO(arrayValueToJSONIndented(with.arrayInArray, 1)),
     DO(plainText(with.arrayInArray.at(1).toArray(), s_indented))},
    {"objectToJSON", DO(objectToJSON(with.object, JSONFormat::Compact)),
     DO(plainText(with.object, s_compact))},
    {"objectToJSONIndented", DO(objectToJSONIndented(with.object)),
     DO(plainText(with.object, s_indented))},
    {"objectValueToJSON", DO(objectValueToJSON(with.objectInObject, u"a", JSONFormat::Compact)),
     DO(plainText(with.objectInObject.value(u"a").toObject(), s_compact))},
    {"objectValueToJSONIndented", DO(objectValueToJSONIndented(with.objectInObject, u"a")),
     DO(plainText(with.objectInObject.value(u"a").toObject(), s_indented))},
};

const Pair<Values> s_memberPairs[] = {
    {"arrayValueType", DO(arrayValueType(with.array, 500)), DO(with.array.at(500).type())},
    {"objectValueType", DO(objectValueType(with.object, with.keyU16)),
     DO(with.object.value(with.key).type())},
    {"objectValue", DO(objectValue(with.object, with.keyU16)), DO(with.object.value(with.key))},
    {"objectGetKeys", DO(objectGetKeys(with.object)), DO(plainKeys(with.object))},
    {"objectInsertValue", DO((objectInsertValue(with.object, with.keyU16, 1), with.object.size())),
     DO((with.object.insert(with.key, 1), with.object.size()))},
    {"objectRemove",
     DO((objectRemove(with.object, with.keyU16), with.object.insert(with.key, 1), 0)),
     DO((with.object.remove(with.key), with.object.insert(with.key, 1), 0))},
};

/// An instance, whose methods are called as the host calls them.
class Instance {
public:
    template <class Value>
    explicit Instance(const Value& value) : m_self(ribo::factory::TypeOf<Value>::toHost(value)) {}

    void call(const char* method, std::initializer_list<kaArray*> given) const {
        std::vector<const kaArray*> arguments{m_self.get()};
        std::vector<host::ArrayPointer> owned;
        for (kaArray* argument : given) {
            arguments.push_back(owned.emplace_back(argument).get());
        }
        const auto& members = ribo::Instance::of(m_self.get())->getClass()->getMembers();
        const auto* overloads = members.findMethod(ribo::internal::makeInterned(method));
        keep(overloads->call({arguments.data(), arguments.size()}));
    }

private:
    host::ArrayPointer m_self;
};

void editArray(benchmark::State& state) {
    const int size = static_cast<int>(state.range(0));
    initialize_dova2_web();
    const Instance array(Values::ofSize(size).array);
    const auto edit = [&] {
        array.call("replace", {kaCreateInt32Scalar(size / 2), kaCreateDoubleScalar(1)});
        array.call("append", {kaCreateDoubleScalar(2)});
        array.call("removeAt", {kaCreateInt32Scalar(size)});
    };
    edit();  // the instance's array is its own from here on
    for (auto _ : state) {
        edit();
    }
}
BENCHMARK(editArray)->Arg(100)->Arg(100'000);

void editObject(benchmark::State& state) {
    initialize_dova2_web();
    const Values& values = Values::ofSize(static_cast<int>(state.range(0)));
    const Instance object(values.object);
    const auto edit = [&] {
        object.call("insert", {kaCreateString(values.keyU16), kaCreateDoubleScalar(1)});
        object.call("value", {kaCreateString(values.keyU16)});
    };
    edit();
    for (auto _ : state) {
        edit();
    }
}
BENCHMARK(editObject)->Arg(100)->Arg(100'000);

/// A pair's two benchmarks, with what `make` gives for each size.
template <class Given, class Make>
void registerPair(const Pair<Given>& pair, std::initializer_list<int> sizes, Make make) {
    for (const int size : sizes) {
        const auto add = [&](const std::string& suffix, void (*run)(Given&)) {
            const std::string name = pair.name + suffix + "/" + std::to_string(size);
            benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                auto& with = make(size);
                for (auto _ : state) {
                    run(with);
                }
            });
        };
        add("", pair.ours);
        add("Floor", pair.floor);
    }
}

[[maybe_unused]] const bool s_registered = [] {
    for (const auto& pair : s_documentPairs) {
        registerPair(pair, {1000, 100'000, 10'000'000}, &Document::ofBytes);
    }
    for (const auto& pair : s_memberPairs) {
        registerPair(pair, {1000}, &Values::ofSize);
    }
    return true;
}();

}  // namespace
