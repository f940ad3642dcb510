#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextCodec>
#include <map>

#include "HostValues.h"
#include "core/ModuleEntry.h"
#include "host/Console.h"
#include "host/Error.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/factory/Adapters.h"
#include "scripting/HostTypes.h"
#include "scripting/JSONArrayFunctions.h"
#include "scripting/JSONObjectFunctions.h"
#include "support/JsonRows.h"

namespace DOVA::test {
namespace {

using ribo::factory::makeMethod;
using ribo::internal::makeInterned;

/// A call as a script makes it, with everything that comes of it. "call" is a method of "self", a
/// property of it ("get Length"), a class's own ("JSONArray.fromJSON", "JSONValue.new", "get
/// JSONValue.Undefined") or a function that the library exports ("arrayFromJSON"); a list of them
/// wants the same of each. What a row does not tell is: no result, nothing printed, no error, self
/// as it was, the locale's codec.
struct ScriptRow {
    QString file;
    QString call;
    QJsonObject content;
};

std::ostream& operator<<(std::ostream& stream, const ScriptRow& row) {
    return stream << row.file.toStdString() << ": " << row.content["name"].toString().toStdString()
                  << ": " << row.call.toStdString();
}

std::vector<ScriptRow> callsIn(const QStringList& files) {
    std::vector<ScriptRow> rows;
    for (const QString& name : files) {
        for (const JsonRow& row : readRows(QString(SCRIPT_ROWS_FOLDER "/") + name + ".json")) {
            const QJsonValue call = row["call"];
            for (const QJsonValue each : call.isArray() ? call.toArray() : QJsonArray{call}) {
                rows.push_back({name, each.toString(), row.content});
            }
        }
    }
    return rows;
}

const std::map<QString, ribo::factory::RiboMethod>& exportedFunctions() {
#define FUNCTION(name) \
    { #name, makeMethod(#name, {}, &web::name) }
    static const std::map<QString, ribo::factory::RiboMethod> functions{
        FUNCTION(arrayFromJSON),
        FUNCTION(arrayToJSON),
        FUNCTION(arrayToJSONIndented),
        FUNCTION(arrayInsertFromJSON),
        FUNCTION(arrayAppendFromJSON),
        FUNCTION(arrayPrependFromJSON),
        FUNCTION(arrayReplaceFromJSON),
        FUNCTION(arrayContainsFromJSON),
        FUNCTION(arrayValueToJSON),
        FUNCTION(arrayValueToJSONIndented),
        FUNCTION(arrayValueType),
        FUNCTION(objectFromJSON),
        FUNCTION(objectToJSON),
        FUNCTION(objectToJSONIndented),
        FUNCTION(objectGetKeys),
        FUNCTION(objectInsertFromJSON),
        FUNCTION(objectInsertValue),
        FUNCTION(objectRemove),
        FUNCTION(objectValue),
        FUNCTION(objectValueToJSON),
        FUNCTION(objectValueToJSONIndented),
        FUNCTION(objectValueType)};
#undef FUNCTION
    return functions;
}

class ScriptRowsTest : public testing::TestWithParam<ScriptRow> {
protected:
    static void SetUpTestSuite() {
        initialize_dova2_web();
        ribo::factory::detail::initStringDataTypes();
    }

    void SetUp() override {
        const QByteArray codec = row().content["codec"].toString().toLatin1();
        QTextCodec::setCodecForLocale(codec.isEmpty() ? nullptr : QTextCodec::codecForName(codec));
        m_console = host::redirectConsole([this](std::string_view text) { printed += text; });
    }
    void TearDown() override {
        host::redirectConsole(m_console);
        QTextCodec::setCodecForLocale(nullptr);
    }

    static const ScriptRow& row() { return GetParam(); }

    host::ArrayPointer call() {
        std::vector<host::ArrayPointer> owned;
        std::vector<const kaArray*> values;
        if (self) {
            values.push_back(self.get());
        }
        const QJsonArray given = row().content["arguments"].toArray();
        for (const QJsonValue argument : given) {
            if (argument["text"].isArray()) {
                values.push_back(keptText(argument));
            } else {
                values.push_back(owned.emplace_back(fromRow(argument)).get());
            }
        }
        return call({values.data(), values.size()});
    }

    std::string printed;
    host::ArrayPointer self = fromRow(row().content["self"]);

private:
    /// The largest takes a second to make, and the next row wants it again.
    static const kaArray* keptText(const QJsonValue& argument) {
        static QJsonValue s_row;
        static host::ArrayPointer s_text;
        if (s_row != argument) {
            s_text = fromRow(argument);
            s_row = argument;
        }
        return s_text.get();
    }

    host::ArrayPointer call(const ribo::factory::Arguments& arguments) const {
        const auto function = exportedFunctions().find(row().call);
        if (function != exportedFunctions().end()) {
            ribo::OverloadSet alone;
            alone.add(function->second);
            return alone.call(arguments);
        }
        const bool isProperty = row().call.startsWith("get ");
        const QStringList names = row().call.mid(isProperty ? 4 : 0).split('.');
        const auto name = makeInterned(names.last().toStdString());
        const ribo::ClassPointer type = classOf(names.first());
        return isProperty             ? type->getMembers().findProperty(name)->get(self.get())
               : name.text() == "new" ? type->getMembers().getConstructors().call(arguments)
                                      : type->getMembers().findMethod(name)->call(arguments);
    }

    ribo::ClassPointer classOf(const QString& name) const {
        return self ? ribo::Instance::of(self.get())->getClass()
                    : ribo::COSNamespace::getClass(makeInterned("dova.web." + name.toStdString()));
    }

    host::ConsoleSink m_console;
};

std::string shown(const QJsonValue& value) {
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

TEST_P(ScriptRowsTest, comesOut) {
    const QJsonObject& wanted = row().content;
    QJsonValue result(QJsonValue::Undefined);
    std::string error;
    try {
        result = toRow(call().get());
    } catch (const host::Error& thrown) {
        error = thrown.identifier() + ": " + thrown.what();
    }
    EXPECT_TRUE(result == wanted["result"]) << shown(result) << shown(wanted["result"]);
    EXPECT_EQ(error, wanted["error"].toString().toStdString());
    EXPECT_EQ(printed, wanted["printed"].toString().toStdString());
    const QJsonValue after = wanted.contains("after") ? wanted["after"] : wanted["self"];
    EXPECT_TRUE(toRow(self.get()) == after) << shown(toRow(self.get())) << shown(after);
}

INSTANTIATE_TEST_SUITE_P(Rows, ScriptRowsTest,
                         testing::ValuesIn(callsIn({"arrays", "objects", "texts", "values"})));
INSTANTIATE_TEST_SUITE_P(Large, ScriptRowsTest, testing::ValuesIn(callsIn({"large"})));

}  // namespace
}  // namespace DOVA::test
