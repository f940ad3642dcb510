#include "jsonpad/json/JsonFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <functional>

#include "FaultyDoor.h"
#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace {

using DOVA::test::JsonRow;
using DOVA::test::readRows;
using DOVA::test::RowName;
using DOVA::test::TemporaryFolder;
using DOVA::test::u16;
using jsonpad::JsonFile;
using jsonpad_test::FaultyDoor;
using testing::ElementsAre;
using testing::HasSubstr;

/// Everything that is easily lost: a mark, CR LF, indentation, number forms, escapes, equal keys.
const std::string s_sample =
    "\xEF\xBB\xBF{\r\n"
    "\t\"name\" : \"caf\\u00e9\\/\",\r\n"
    "\t\"id\":12345678901234567890,\r\n"
    "\t\"ratio\": 1.0e+5,\"ratio\": -0.0,\r\n"
    "\t\"on\":true,  \"off\" :false ,\r\n"
    "\t\"none\": null,\r\n"
    "\t\"list\": [ 1, \"a b\",\r\n {\"x\" : [ ]} ]\r\n"
    "}\r\n\r\n";

class File : public testing::Test {
protected:
    /// Moved, so that texts short enough to be kept inside a string object move as well.
    JsonFile load(const std::string& text) {
        JsonFile first = JsonFile::load(m_folder.write("a.json", text), m_door);
        JsonFile second = std::move(first);
        return second;
    }

    TemporaryFolder m_folder;
    FaultyDoor m_door;
};

TEST_F(File, ListsMembersInOrderWithDecodedTextsAndExactNumbers) {
    const JsonFile file = load(s_sample);
    std::vector<std::u16string> lines;
    for (const auto& member : file.members()) {
        lines.push_back(member.key + u"=" + member.value);
    }
    EXPECT_THAT(lines, ElementsAre(u"name=caf\u00e9/", u"id=12345678901234567890", u"ratio=1.0e+5",
                                   u"ratio=-0.0", u"on=true", u"off=false", u"none=null",
                                   uR"(list=[1,"a b",{"x":[]}])"));
}

/// "from" is the piece of the s_sample that goes; there is none when the edit is refused.
class FileEdit : public File, public testing::WithParamInterface<JsonRow> {
protected:
    static bool edit(JsonFile& file) {
        const QJsonValue call = GetParam()["edit"];
        const QString name = call[0].toString();
        const auto member = static_cast<std::size_t>(call[1].toInt());
        return name == "setString"   ? file.setString(member, u16(call[2]))
               : name == "setNumber" ? file.setNumber(member, u16(call[2]))
                                     : file.setBoolean(member, call[2].toBool());
    }
};

TEST_P(FileEdit, ChangesItsValueAndNoOtherByte) {
    const std::string from = GetParam().text("from");
    const bool isAllowed = !from.empty();
    std::string expected = s_sample;
    if (isAllowed) {
        expected.replace(expected.find(from), from.size(), GetParam().text("to"));
    }
    JsonFile file = load(s_sample);
    EXPECT_EQ(edit(file), isAllowed);
    EXPECT_EQ(file.isModified(), isAllowed);
    EXPECT_EQ(file.text(), expected);
    file.save();
    EXPECT_EQ(m_folder.read("a.json"), expected);
    EXPECT_FALSE(file.isModified());
}

INSTANTIATE_TEST_SUITE_P(All, FileEdit, testing::ValuesIn(readRows(ROWS, "fileEdits")), RowName());

TEST_F(File, EditsGoBackByHandOrToTheLastSave) {
    JsonFile file = load(s_sample);
    file.setBoolean(4, false);
    file.setString(0, u"x");
    file.setBoolean(4, true);
    EXPECT_TRUE(file.isModified());
    file.setString(0, u"caf\u00e9/");
    EXPECT_FALSE(file.isModified());
    EXPECT_EQ(file.text(), s_sample);
    file.setNumber(2, u"7");
    file.setString(0, u"a much longer text than before");
    file.save();
    std::string saved = s_sample;
    saved.replace(saved.find("1.0e+5"), 6, "7");
    saved.replace(saved.find("caf\\u00e9\\/"), 11, "a much longer text than before");
    EXPECT_EQ(m_folder.read("a.json"), saved);
    file.setString(0, u"");
    file.setNumber(2, u"0");
    file.revert();
    EXPECT_FALSE(file.isModified());
    EXPECT_EQ(file.members()[2].value, u"7");
    EXPECT_EQ(file.text(), saved);
}

TEST_F(File, ChangeByAnotherProgramIsRefusedUntilToldToOverwrite) {
    JsonFile file = load("{\"a\":1}");
    file.setNumber(0, u"2");
    m_folder.write("a.json", "{\"a\":1} ");
    EXPECT_THROW(file.save(), JsonFile::ChangedOnDisk);
    EXPECT_EQ(m_folder.read("a.json"), "{\"a\":1} ");
    EXPECT_TRUE(file.isModified());
    file.save(JsonFile::IfChanged::Overwrite);
    EXPECT_EQ(m_folder.read("a.json"), "{\"a\":2}");
    std::filesystem::remove(m_folder / "a.json");
    EXPECT_THROW(file.save(), JsonFile::ChangedOnDisk);
    EXPECT_THAT(m_folder.names(), ElementsAre());
    file.save(JsonFile::IfChanged::Overwrite);
    EXPECT_EQ(m_folder.read("a.json"), "{\"a\":2}");
    m_door.fault = "create";
    EXPECT_NO_THROW(file.save()) << "nothing to write";
}

/// Without a message the fault is to be overcome.
class FaultySave : public File, public testing::WithParamInterface<JsonRow> {};

TEST_P(FaultySave, GivesTheNewFileOrLeavesTheOldOneAndNothingElse) {
    JsonFile file = load(s_sample);
    file.setString(0, u"new");
    const std::string edited = file.text();
    m_door.fault = GetParam().name;
    std::replace(m_door.fault.begin(), m_door.fault.end(), '_', '+');
    const std::string expected = GetParam().text("message");
    std::string message;
    try {
        file.save();
    } catch (const jsonpad::FileError& error) {
        message = error.what();
    }
    EXPECT_GT(m_door.failures, 0);
    EXPECT_THAT(message, HasSubstr(expected));
    EXPECT_EQ(message.empty(), expected.empty());
    EXPECT_EQ(file.isModified(), !expected.empty());
    EXPECT_EQ(m_folder.read("a.json"), expected.empty() ? edited : s_sample);
    EXPECT_THAT(m_folder.names(), ElementsAre("a.json"));
    m_door.fault.clear();
    file.save();
    EXPECT_EQ(m_folder.read("a.json"), edited);
}

INSTANTIATE_TEST_SUITE_P(All, FaultySave, testing::ValuesIn(readRows(ROWS, "faultySaves")),
                         RowName());

struct LoadRow {
    const char* name;
    std::function<void(const std::string& path)> spoil;  ///< the file, which holds {}
    const char* fault;
    const char* message;
};

const auto s_asItIs = [](const std::string&) {};

const LoadRow s_loadRows[] = {
    {"missing", [](auto& path) { std::filesystem::remove(path); }, "", "there is no such file"},
    {"pipe",
     [](auto& path) {
         std::filesystem::remove(path);
         ::mkfifo(path.c_str(), 0600);
     },
     "", "/a.json' is not a regular file"},
    {"tooBig",
     [](auto& path) { std::filesystem::resize_file(path, jsonpad::TextFile::sizeLimit + 1); }, "",
     "/a.json' is larger than 64 MiB"},
    {"notJson", [](auto& path) { std::filesystem::resize_file(path, 1); }, "",
     "/a.json': line 1, column 2: the text ends too early"},
    {"cannotRead", s_asItIs, "read", "/a.json': Input/output error"},
    {"readOnlyFile", s_asItIs, "mayWriteFile", "/a.json': Permission denied"},
    {"markedReadOnly", [](auto& path) { ::chmod(path.c_str(), 0444); }, "",
     "/a.json': Permission denied"},
    {"tooManyMembers",
     [](auto& path) {
         std::ofstream file(path);
         file << "{\n\"a\":0";
         for (std::size_t count = 0; count < jsonpad::JsonOutline::rootLimit; ++count) {
             file << ",\"a\":0";
         }
         file << "}";
     },
     "", "/a.json': line 2, column 60001: the object has 10001 members, and a form holds 10000"},
};

class FileLoad : public File, public testing::WithParamInterface<LoadRow> {};

TEST_P(FileLoad, SaysInOneLineWhatIsWrong) {
    const std::string path = m_folder.write("a.json", "{}");
    GetParam().spoil(path);
    m_door.fault = GetParam().fault;
    try {
        JsonFile::load(path, m_door);
        ADD_FAILURE() << "loaded";
    } catch (const jsonpad::FileError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().message));
        EXPECT_THAT(error.what(), Not(HasSubstr("\n")));
    }
}

INSTANTIATE_TEST_SUITE_P(All, FileLoad, testing::ValuesIn(s_loadRows), RowName());

}  // namespace
