// jsonpad's document under edits. Up to a zero byte the input is a file; each line after it is an
// edit: the member and the element as bytes, what is done as a third, then a text. What is saved
// must be read again as what the fields showed, and nothing but the edited values may change.

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "jsonpad/Document.h"
#include "jsonpad/json/JsonString.h"

namespace {

using jsonpad::Document;
using jsonpad::JsonKind;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// A file system with one file, in memory.
class MemoryDoor : public jsonpad::FileDoor {
public:
    std::string content;

    int openForReading(const std::string& path) override {
        m_read = 0;
        return path == "/file" ? 3 : -1;
    }
    ssize_t read(int, char* buffer, std::size_t size) override {
        const std::size_t count = content.copy(buffer, size, m_read);
        m_read += count;
        return static_cast<ssize_t>(count);
    }
    int describe(int, struct stat& description) override {
        description = {};
        description.st_mode = S_IFREG | 0600U;
        description.st_nlink = 1;
        return 0;
    }
    int createUnnamed(const std::string&) override {
        m_new.clear();
        return 4;
    }
    ssize_t write(int, const char* data, std::size_t size) override {
        m_new.append(data, size);
        return static_cast<ssize_t>(size);
    }
    int rename(const std::string&, const std::string&) override {
        content = m_new;
        return 0;
    }
    int giveName(int, const std::string&) override { return 0; }
    int setOwner(int, uid_t, gid_t) override { return 0; }
    int setMode(int, mode_t) override { return 0; }
    int copyAttributes(int, int) override { return 0; }
    int sync(int) override { return 0; }
    int close(int) override { return 0; }
    int remove(const std::string&) override { return 0; }
    int mayWrite(const std::string&) override { return 0; }
    std::string realPath(const std::string& path) override { return path; }

private:
    std::size_t m_read = 0;
    std::string m_new;
};

std::string line(std::string_view& rest) {
    std::string result(rest.substr(0, rest.find('\n')));
    rest.remove_prefix(std::min(result.size() + 1, rest.size()));
    return result;
}

void edit(Document& document, const std::string& edit) {
    if (edit.size() < 3 || document.members().empty()) {
        return;
    }
    const auto byte = [&edit](std::size_t at) { return static_cast<unsigned char>(edit[at]); };
    const std::size_t member = byte(0) % document.members().size();
    const JsonKind kind = document.members()[member].kind;
    const bool isList = kind == JsonKind::List;
    const Document::Place place{member,
                                isList ? std::optional<std::size_t>(byte(1)) : std::nullopt};
    const std::u16string text = jsonpad::toUtf16(edit.substr(3));
    if (isList && byte(2) % 4 == 0) {
        document.addElement(member);
    } else if (isList && byte(2) % 4 == 1) {
        document.removeElement(member, byte(1));
    } else if (isList || kind == JsonKind::String || kind == JsonKind::Number) {
        document.enter(place, text);
    } else if (kind == JsonKind::Boolean) {
        document.turn(place, byte(2) % 2 == 0);
    }
    require(document.contains(place) || document.text(place).empty());
}

/// The file says what the fields show, but for what is no number.
void requireSaved(Document& document, MemoryDoor& door) {
    document.save(jsonpad::JsonFile::IfChanged::Refuse);
    require(document.isModified() == !document.invalid().empty());
    const Document again(jsonpad::JsonFile::load("/file", door));
    require(again.members().size() == document.members().size());
    for (std::size_t member = 0; member < document.members().size(); ++member) {
        const bool isSame = again.members()[member].key == document.members()[member].key &&
                            (document.invalid().count(member) > 0 ||
                             again.members()[member].value == document.members()[member].value);
        require(isSame);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    MemoryDoor door;
    door.content = rest.substr(0, rest.find('\0'));
    rest.remove_prefix(std::min(door.content.size() + 1, rest.size()));
    const std::string before = door.content;
    try {
        Document document(jsonpad::JsonFile::load("/file", door));
        for (int count = 0; !rest.empty(); ++count) {
            edit(document, line(rest));
            if (count % 4 == 3) {
                requireSaved(document, door);
            }
        }
        const std::string saved = door.content;
        document.revert();
        require(!document.isModified());
        document.save(jsonpad::JsonFile::IfChanged::Refuse);
        require(door.content == saved);
    } catch (const jsonpad::FileError&) {
        require(door.content == before);
    }
    return 0;
}
