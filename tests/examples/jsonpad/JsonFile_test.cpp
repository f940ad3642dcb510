#include "jsonpad/JsonFile.h"

#include <gmock/gmock.h>

#include <functional>

#include "FaultyDoor.h"
#include "RandomJson.h"
#include "TemporaryFolder.h"

namespace {

using jsonpad::JsonFile;
using jsonpad_test::FaultyDoor;
using jsonpad_test::RandomJson;
using jsonpad_test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using Kind = JsonFile::Kind;

/// Everything that is easily lost: a mark, CR LF, indentation, number forms, escapes, equal keys.
const std::string sample =
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
    JsonFile load(const std::string& text) {
        return JsonFile::load(m_folder.write("a.json", text), m_door);
    }

    TemporaryFolder m_folder;
    FaultyDoor m_door;
};

TEST_F(File, ListsMembersInOrderWithDecodedTextsAndExactNumbers) {
    const JsonFile file = load(sample);
    std::vector<std::u16string> lines;
    for (const auto& member : file.members()) {
        lines.push_back(member.key + u"=" + member.value);
    }
    EXPECT_THAT(lines, ElementsAre(u"name=caf\u00e9/", u"id=12345678901234567890", u"ratio=1.0e+5",
                                   u"ratio=-0.0", u"on=true", u"off=false", u"none=null",
                                   uR"(list=[1,"a b",{"x":[]}])"));
    EXPECT_EQ(file.members()[0].kind, Kind::String);
    EXPECT_EQ(file.members()[3].kind, Kind::Number);
    EXPECT_EQ(file.members()[5].kind, Kind::Boolean);
    EXPECT_EQ(file.members()[6].kind, Kind::Null);
    EXPECT_EQ(file.members()[7].kind, Kind::Nested);
}

struct EditRow {
    const char* name;
    std::function<bool(JsonFile&)> edit;
    const char* from;  ///< the piece of the sample that goes; empty when the edit is refused
    const char* to;
};

const EditRow editRows[] = {
    {"string", [](JsonFile& f) { return f.setString(0, u"a\"\n\u20ac"); }, "\"caf\\u00e9\\/\"",
     "\"a\\\"\\n\xE2\x82\xAC\""},
    {"emptyString", [](JsonFile& f) { return f.setString(0, u""); }, "\"caf\\u00e9\\/\"", "\"\""},
    {"loneSurrogate", [](JsonFile& f) { return f.setString(0, u"\xD800"); }, "\"caf\\u00e9\\/\"",
     "\"\\ud800\""},
    {"number", [](JsonFile& f) { return f.setNumber(1, u"-1E400"); }, "12345678901234567890",
     "-1E400"},
    {"sameNumberOtherForm", [](JsonFile& f) { return f.setNumber(2, u"100000"); }, "1.0e+5",
     "100000"},
    {"secondOfEqualKeys", [](JsonFile& f) { return f.setNumber(3, u"0"); }, "-0.0", "0"},
    {"boolean", [](JsonFile& f) { return f.setBoolean(4, false); }, "true", "false"},
    {"longerBoolean", [](JsonFile& f) { return f.setBoolean(5, true); }, "false", "true"},
    {"numberWithSpace", [](JsonFile& f) { return f.setNumber(1, u" 1"); }, "", ""},
    {"numberEmpty", [](JsonFile& f) { return f.setNumber(1, u""); }, "", ""},
    {"numberLeadingZero", [](JsonFile& f) { return f.setNumber(1, u"01"); }, "", ""},
    {"numberWord", [](JsonFile& f) { return f.setNumber(1, u"NaN"); }, "", ""},
    {"numberInjection", [](JsonFile& f) { return f.setNumber(1, u"1,\"x\":2"); }, "", ""},
    {"numberForeignDigits", [](JsonFile& f) { return f.setNumber(1, u"\u0661"); }, "", ""},
    {"numberLooksAsciiCut", [](JsonFile& f) { return f.setNumber(1, u"\u0131"); }, "", ""},
    {"stringIntoNumber", [](JsonFile& f) { return f.setString(1, u"1"); }, "", ""},
    {"numberIntoString", [](JsonFile& f) { return f.setNumber(0, u"1"); }, "", ""},
    {"booleanIntoNull", [](JsonFile& f) { return f.setBoolean(6, true); }, "", ""},
    {"stringIntoNested", [](JsonFile& f) { return f.setString(7, u"[]"); }, "", ""},
    {"noSuchMember", [](JsonFile& f) { return f.setString(8, u"x"); }, "", ""},
};

class FileEdit : public File, public testing::WithParamInterface<EditRow> {};

TEST_P(FileEdit, ChangesItsValueAndNoOtherByte) {
    const EditRow& row = GetParam();
    const bool isAllowed = *row.from != '\0';
    std::string expected = sample;
    if (isAllowed) {
        expected.replace(expected.find(row.from), std::string(row.from).size(), row.to);
    }
    JsonFile file = load(sample);
    EXPECT_EQ(row.edit(file), isAllowed);
    EXPECT_EQ(file.isModified(), isAllowed);
    EXPECT_EQ(file.text(), expected);
    file.save();
    EXPECT_EQ(m_folder.read("a.json"), expected);
    EXPECT_FALSE(file.isModified());
}

INSTANTIATE_TEST_SUITE_P(All, FileEdit, testing::ValuesIn(editRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(File, EditedBackIsUnmodifiedWithItsOldText) {
    JsonFile file = load(sample);
    file.setString(0, u"x");
    file.setBoolean(4, false);
    file.setString(0, u"caf\u00e9/");
    EXPECT_TRUE(file.isModified());
    file.setBoolean(4, true);
    EXPECT_FALSE(file.isModified());
    EXPECT_EQ(file.text(), sample);
}

TEST_F(File, RevertTakesBackToTheLastSave) {
    JsonFile file = load(sample);
    file.setString(0, u"saved");
    file.save();
    const std::string saved = file.text();
    file.setString(0, u"a much longer text than before");
    file.setNumber(2, u"0");
    file.revert();
    EXPECT_FALSE(file.isModified());
    EXPECT_EQ(file.members()[0].value, u"saved");
    EXPECT_EQ(file.members()[2].value, u"1.0e+5");
    EXPECT_EQ(file.text(), saved);
}

TEST_F(File, WorksOnAfterBeingMoved) {
    JsonFile first = load("{\"a\":1}");  // short enough to be kept inside the string object
    JsonFile second = std::move(first);
    second.setNumber(0, u"22");
    EXPECT_EQ(second.text(), "{\"a\":22}");
}

TEST_F(File, UnmodifiedSaveDoesNotTouchTheFile) {
    JsonFile file = load(sample);
    m_door.fault = FaultyDoor::Fault::CreateTemporary;
    EXPECT_NO_THROW(file.save());
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
    EXPECT_NO_THROW(file.save());
}

TEST_F(File, RemovedFileComesBackOnlyWhenTold) {
    JsonFile file = load("{\"a\":1}");
    std::filesystem::permissions(m_folder / "a.json", std::filesystem::perms(0604));
    file.setNumber(0, u"2");
    file.save();
    std::filesystem::remove(m_folder / "a.json");
    EXPECT_THROW(file.save(), JsonFile::ChangedOnDisk);
    EXPECT_TRUE(m_folder.names().empty());
    file.save(JsonFile::IfChanged::Overwrite);
    EXPECT_EQ(m_folder.read("a.json"), "{\"a\":2}");
    EXPECT_EQ(std::filesystem::status(m_folder / "a.json").permissions(),
              std::filesystem::perms(0604));
}

struct LoadRow {
    const char* name;
    std::function<std::string(const TemporaryFolder&)> make;  ///< gives the path
    FaultyDoor::Fault fault;
    const char* message;
};

const LoadRow loadRows[] = {
    {"missing", [](const auto& f) { return f / "no.json"; }, FaultyDoor::Fault::None,
     "/no.json': there is no such file"},
    {"folder", [](const auto& f) { return f / ""; }, FaultyDoor::Fault::None,
     "' is not a regular file"},
    {"device", [](const auto&) { return "/dev/zero"; }, FaultyDoor::Fault::None,
     "'/dev/zero' is not a regular file"},
    {"pipe",
     [](const auto& f) {
         ::mkfifo((f / "p").c_str(), 0600);
         return f / "p";
     },
     FaultyDoor::Fault::None, "/p' is not a regular file"},
    {"tooBig",
     [](const auto& f) {
         f.write("big.json", "{}");
         std::filesystem::resize_file(f / "big.json", jsonpad::TextFile::sizeLimit + 1);
         return f / "big.json";
     },
     FaultyDoor::Fault::None, "/big.json' is larger than 64 MiB"},
    {"notJson", [](const auto& f) { return f.write("a.json", "{\n \"a\": x}"); },
     FaultyDoor::Fault::None, "/a.json': line 2, column 7: a value is expected here"},
    {"empty", [](const auto& f) { return f.write("a.json", ""); }, FaultyDoor::Fault::None,
     "/a.json': line 1, column 1: the text ends too early"},
    {"cannotOpen", [](const auto& f) { return f.write("a.json", "{}"); }, FaultyDoor::Fault::Open,
     "/a.json': Too many open files"},
    {"cannotRead", [](const auto& f) { return f.write("a.json", "{}"); }, FaultyDoor::Fault::Read,
     "/a.json': Input/output error"},
    {"readOnlyFile", [](const auto& f) { return f.write("a.json", "{}"); },
     FaultyDoor::Fault::MayWriteFile, "/a.json': Permission denied"},
    {"readOnlyFolder", [](const auto& f) { return f.write("a.json", "{}"); },
     FaultyDoor::Fault::MayWriteFolder, "/a.json': Permission denied"},
};

class FileLoad : public File, public testing::WithParamInterface<LoadRow> {};

TEST_P(FileLoad, SaysInOneLineWhatIsWrong) {
    const std::string path = GetParam().make(m_folder);
    m_door.fault = GetParam().fault;
    try {
        JsonFile::load(path, m_door);
        ADD_FAILURE() << "loaded";
    } catch (const jsonpad::FileError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().message));
        EXPECT_THAT(error.what(), Not(HasSubstr("\n")));
    }
}

INSTANTIATE_TEST_SUITE_P(All, FileLoad, testing::ValuesIn(loadRows),
                         [](const auto& row) { return row.param.name; });

/// Gives the member a random new value of its kind; false for kinds that cannot be edited.
bool editRandomly(JsonFile& file, std::size_t index, RandomJson& random) {
    static const std::u16string texts[] = {u"", u"\"", u"\xDC00", u"\U0001F600", u"long text\n"};
    switch (file.members()[index].kind) {
        case Kind::String:
            return file.setString(index, texts[random.below(std::size(texts))]);
        case Kind::Number: {
            const std::string number = random.number();
            return file.setNumber(index, std::u16string(number.begin(), number.end()));
        }
        case Kind::Boolean:
            return file.setBoolean(index, random.below(2) == 0);
        default:
            return false;
    }
}

/// The text without the values of the members in `without`.
std::string rest(const std::string& text, const std::vector<bool>& without) {
    std::string result;
    std::size_t copied = 0;
    const auto members = jsonpad::JsonScanner::scan(text);
    for (std::size_t index = 0; index < members.size(); ++index) {
        const auto start = static_cast<std::size_t>(members[index].value.data() - text.data());
        const std::size_t end = start + members[index].value.size();
        result.append(text, copied, (without[index] ? start : end) - copied);
        copied = end;
    }
    return result.append(text, copied, std::string::npos);
}

TEST_F(File, RandomEditsKeepEveryOtherByteAndSurviveSaving) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomJson random(seed);
    for (int round = 0; round < 300; ++round) {
        const std::string original = random.object();
        JsonFile file = load(original);
        ASSERT_EQ(file.text(), original);
        std::vector<bool> isEdited(file.members().size());
        for (std::size_t index = 0; index < isEdited.size(); ++index) {
            isEdited[index] = random.below(2) == 0 && editRandomly(file, index, random);
        }
        const std::string edited = file.text();
        ASSERT_EQ(rest(edited, isEdited), rest(original, isEdited)) << original;
        file.save();
        const JsonFile again = JsonFile::load(m_folder / "a.json");
        ASSERT_EQ(again.text(), edited);
        for (std::size_t index = 0; index < isEdited.size(); ++index) {
            ASSERT_EQ(again.members()[index].value, file.members()[index].value) << edited;
        }
        file.revert();
        ASSERT_EQ(file.text(), edited);
    }
}

}  // namespace
