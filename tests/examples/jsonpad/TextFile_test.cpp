#include "jsonpad/TextFile.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using DOVA::test::TemporaryFolder;
using jsonpad::TextFile;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr const char* oldBytes = "old bytes of the file";
constexpr const char* newBytes = "the new bytes, which are longer";

TEST(TextFile, KeepsTheMode) {
    for (const int mode : {0600, 0666, 02664, 04700}) {
        const TemporaryFolder folder;
        const std::string path = folder.write("a.json", oldBytes);
        fs::permissions(path, fs::perms(mode));
        TextFile file(path, jsonpad::FileDoor::system());
        file.read();
        file.replaceWith(newBytes);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(mode));
    }
}

TEST(TextFile, FollowsLinksAndLeavesThem) {
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

TEST(TextFile, RelativeAndLongNamesAndLargeFilesWork) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    std::string bytes;
    for (int count = 0; count < 200000; ++count) {  // more than one buffer
        bytes += static_cast<char>(count * 7);
    }
    folder.write(name, bytes);
    const fs::path before = fs::current_path();
    fs::current_path(folder / "");
    TextFile file(name, jsonpad::FileDoor::system());
    EXPECT_TRUE(file.read() == bytes);
    fs::current_path(before);
    file.replaceWith(newBytes);
    EXPECT_EQ(folder.read(name), newBytes);
}

}  // namespace
