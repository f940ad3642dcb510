#include "jsonpad/file/TextFile.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <filesystem>
#include <string>

#include "FaultyDoor.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using DOVA::test::TemporaryFolder;
using jsonpad::TextFile;
using jsonpad_test::FaultyDoor;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr const char* s_oldBytes = "old bytes of the file";
constexpr const char* s_newBytes = "the new bytes, which are longer";

struct stat statusOf(const std::string& path) {
    struct stat result {};
    EXPECT_EQ(::stat(path.c_str(), &result), 0);
    return result;
}

/// What a team that shares a file expects to find after somebody has saved it.
TEST(TextFile, KeepsWhatTheFileIsToOthers) {
    struct {
        const char* name;
        unsigned mode;
        const char* fault = "";
        unsigned modeAfter = 0;  ///< 0: as before
        bool hasOtherName = false;
        bool isSameFile = false;
    } const rows[] = {
        {"private", 0600},
        {"forAll", 0666},
        {"groupFolder", 02664},
        {"runsAsOwner", 04700},
        {"becomesAnothers", 06660, "giveAway", 0660},
        {"groupCannotBeKept", 0664, "owner", 0, false, true},
        {"hardLink", 0640, "", 0, true, true},
        {"folderNotWritable", 0640, "folder", 0, false, true},
        {"mountedOn", 0640, "rename", 0, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const TemporaryFolder folder;
        const std::string path = folder.write("a.json", s_oldBytes);
        ASSERT_EQ(::chmod(path.c_str(), row.mode), 0);
        const bool hasAttributes = ::setxattr(path.c_str(), "user.team", "blue", 4, 0) == 0;
        if (row.hasOtherName) {
            fs::create_hard_link(path, folder / "b.json");
        }
        const struct stat before = statusOf(path);
        FaultyDoor door;
        door.fault = row.fault;
        TextFile file(path, door);
        file.read();
        file.replaceWith(s_newBytes);
        const struct stat after = statusOf(path);
        EXPECT_EQ(folder.read("a.json"), s_newBytes);
        EXPECT_EQ(after.st_mode & 07777U, row.modeAfter > 0 ? row.modeAfter : row.mode);
        EXPECT_EQ(after.st_gid, before.st_gid);
        EXPECT_EQ(after.st_ino == before.st_ino, row.isSameFile);
        EXPECT_EQ(folder.names().size(), row.hasOtherName ? 2U : 1U);
        std::array<char, 8> team{};
        EXPECT_EQ(::getxattr(path.c_str(), "user.team", team.data(), team.size()) == 4,
                  hasAttributes);
    }
}

/// A list for a second user, as setfacl writes it; and a folder's own list, which is not the
/// file's.
TEST(TextFile, KeepsAccessLists) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.json", s_oldBytes);
    // clang-format off
    const unsigned char list[] = {2, 0, 0, 0,  1, 0, 6, 0, 255, 255, 255, 255,
                                  2, 0, 6, 0, 7, 0, 0, 0,  4, 0, 4, 0, 255, 255, 255, 255,
                                  16, 0, 6, 0, 255, 255, 255, 255,  32, 0, 0, 0, 255, 255, 255, 255};
    // clang-format on
    if (::setxattr(path.c_str(), "system.posix_acl_access", list, sizeof list, 0) != 0) {
        GTEST_SKIP() << "no access lists on this file system";
    }
    const auto save = [&path] {
        TextFile file(path, jsonpad::FileDoor::system());
        file.read();
        file.replaceWith(s_newBytes);
        std::string found(100, '\0');
        const ssize_t size =
            ::getxattr(path.c_str(), "system.posix_acl_access", found.data(), found.size());
        return found.substr(0, size < 0 ? 0 : static_cast<std::size_t>(size));
    };
    EXPECT_EQ(save(), std::string(reinterpret_cast<const char*>(list), sizeof list));
    ASSERT_EQ(::removexattr(path.c_str(), "system.posix_acl_access"), 0);
    ASSERT_EQ(::setxattr((folder / "").c_str(), "system.posix_acl_default", list, sizeof list, 0),
              0);
    EXPECT_EQ(save(), "");
}

/// What a crash leaves where files without a name do not exist goes with the next save.
TEST(TextFile, RemovesWhatACrashLeft) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.json", s_oldBytes);
    folder.write(".jsonpad-" + std::to_string(statusOf(path).st_ino), "half");
    FaultyDoor door;
    door.fault = "unnamed";
    TextFile file(path, door);
    file.read();
    file.replaceWith(s_newBytes);
    EXPECT_THAT(folder.names(), ElementsAre("a.json"));
}

TEST(TextFile, FollowsLinksAndLeavesThem) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    const std::string target = elsewhere.write("real.json", s_oldBytes);
    fs::create_symlink(target, folder / "second");
    fs::create_symlink("second", folder / "first");
    TextFile file(folder / "first", jsonpad::FileDoor::system());
    EXPECT_EQ(file.read(), s_oldBytes);
    file.replaceWith(s_newBytes);
    EXPECT_EQ(elsewhere.read("real.json"), s_newBytes);
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
    file.replaceWith(s_newBytes);
    EXPECT_EQ(folder.read(name), s_newBytes);
}

}  // namespace
