#include "jsonpad/TextFile.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "FaultyDoor.h"
#include "TemporaryFolder.h"
#include "jsonpad/FileError.h"

namespace {

namespace fs = std::filesystem;
using jsonpad::FileError;
using jsonpad::TextFile;
using jsonpad_test::FaultyDoor;
using jsonpad_test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

constexpr const char* oldBytes = "old bytes of the file";
constexpr const char* newBytes = "the new bytes, which are longer";

struct FaultRow {
    const char* name;
    FaultyDoor::Fault fault;
    const char* message;  ///< empty when the fault is to be overcome
};

const FaultRow faultRows[] = {
    {"none", FaultyDoor::Fault::None, ""},
    {"noTemporary", FaultyDoor::Fault::CreateTemporary, "Read-only file system"},
    {"diskFull", FaultyDoor::Fault::Write, "No space left on device"},
    {"interruptedAndShortWrites", FaultyDoor::Fault::InterruptedWrite, ""},
    {"foreignOwner", FaultyDoor::Fault::SetOwner, ""},
    {"noMode", FaultyDoor::Fault::SetMode, "Operation not permitted"},
    {"noSync", FaultyDoor::Fault::Sync, "Input/output error"},
    {"quotaSeenAtClose", FaultyDoor::Fault::Close, "Disk quota exceeded"},
    {"noRename", FaultyDoor::Fault::Rename, "Device or resource busy"},
};

class Replace : public testing::TestWithParam<FaultRow> {};

TEST_P(Replace, GivesTheNewFileOrLeavesTheOldOneAndNothingElse) {
    const TemporaryFolder folder;
    FaultyDoor door;
    TextFile file(folder.write("a.json", oldBytes), door);
    file.read();
    door.fault = GetParam().fault;
    std::string message;
    try {
        file.replaceWith(newBytes);
    } catch (const FileError& error) {
        message = error.what();
    }
    const bool mayFail = *GetParam().message != '\0';
    EXPECT_THAT(message, HasSubstr(GetParam().message));
    EXPECT_EQ(message.empty(), !mayFail);
    EXPECT_EQ(folder.read("a.json"), mayFail ? oldBytes : newBytes);
    EXPECT_THAT(folder.names(), ElementsAre("a.json"));
    door.fault = FaultyDoor::Fault::None;
    file.replaceWith("again");
    EXPECT_EQ(folder.read("a.json"), "again");
}

INSTANTIATE_TEST_SUITE_P(All, Replace, testing::ValuesIn(faultRows),
                         [](const auto& row) { return row.param.name; });

class Mode : public testing::TestWithParam<int> {};

TEST_P(Mode, IsKept) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.json", oldBytes);
    fs::permissions(path, fs::perms(GetParam()));
    TextFile file(path, jsonpad::FileDoor::system());
    file.read();
    file.replaceWith(newBytes);
    EXPECT_EQ(folder.read("a.json"), newBytes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, Mode, testing::Values(0600, 0644, 0666, 0755, 02664, 04700));

TEST(TextFileLinks, AreFollowedAndStay) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    const std::string target = elsewhere.write("real.json", oldBytes);
    fs::create_symlink(target, folder / "second");
    fs::create_symlink("second", folder / "first");
    TextFile file(folder / "first", jsonpad::FileDoor::system());
    EXPECT_EQ(file.read(), oldBytes);
    file.replaceWith(newBytes);
    EXPECT_EQ(elsewhere.read("real.json"), newBytes);
    EXPECT_EQ(fs::read_symlink(folder / "first"), "second");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("first", "second"));
    EXPECT_THAT(elsewhere.names(), ElementsAre("real.json"));
}

TEST(TextFileNames, RelativeNamesAndNamesAsLongAsTheyGetWork) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    folder.write(name, oldBytes);
    const fs::path before = fs::current_path();
    fs::current_path(folder / "");
    TextFile file(name, jsonpad::FileDoor::system());
    EXPECT_EQ(file.read(), oldBytes);
    fs::current_path(before);
    file.replaceWith(newBytes);
    EXPECT_EQ(folder.read(name), newBytes);
}

TEST(TextFileReading, GivesNothingForNoFileAndEveryByteOtherwise) {
    const TemporaryFolder folder;
    TextFile file(folder / "a.json", jsonpad::FileDoor::system());
    EXPECT_EQ(file.read(), std::nullopt);
    std::string bytes;
    for (int count = 0; count < 200000; ++count) {
        bytes += static_cast<char>(count * 7);
    }
    folder.write("a.json", bytes);
    EXPECT_TRUE(file.read() == bytes);
}

}  // namespace
