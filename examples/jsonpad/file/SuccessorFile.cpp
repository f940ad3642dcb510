#include "SuccessorFile.h"

#include <cerrno>
#include <utility>

namespace jsonpad {

namespace {

constexpr uid_t s_sameOwner = static_cast<uid_t>(-1);
constexpr mode_t s_runAsBits = S_ISUID | S_ISGID;

std::string temporaryName(const std::string& path, const struct stat& description) {
    return path.substr(0, path.rfind('/') + 1) + ".jsonpad-" + std::to_string(description.st_ino);
}

}  // namespace

SuccessorFile::SuccessorFile(FileDoor& door, std::string path, const struct stat& description)
    : m_door(door),
      m_path(std::move(path)),
      m_temporary(temporaryName(m_path, description)),
      m_description(description),
      m_file(door) {}

SuccessorFile::~SuccessorFile() {
    if (m_isNamed) {
        m_door.remove(m_temporary);
    }
}

bool SuccessorFile::create() {
    if (m_file.take(m_door.createUnnamed(m_path.substr(0, m_path.rfind('/') + 1)))) {
        return true;
    }
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
        return false;
    }
    m_door.remove(m_temporary);
    m_isNamed = m_file.take(m_door.createNamed(m_temporary));
    return m_isNamed;
}

bool SuccessorFile::takeOwnership(mode_t& mode) {
    if (m_door.setOwner(m_file.get(), m_description.st_uid, m_description.st_gid) == 0) {
        return true;
    }
    mode &= ~s_runAsBits;
    return m_door.setOwner(m_file.get(), s_sameOwner, m_description.st_gid) == 0;
}

bool SuccessorFile::resemble(const OpenFile& original) {
    mode_t mode = m_description.st_mode & 07777U;
    // The mode comes last: a change of owner takes bits away, and an access list sets some.
    return takeOwnership(mode) &&
           (!original.isOpen() || m_door.copyAttributes(original.get(), m_file.get()) == 0) &&
           m_door.setMode(m_file.get(), mode) == 0;
}

bool SuccessorFile::giveName() {
    if (m_isNamed) {
        return true;
    }
    // A name that is there is what a crash between the two steps of another save left.
    m_isNamed = m_door.giveName(m_file.get(), m_temporary) == 0 ||
                (errno == EEXIST && m_door.remove(m_temporary) == 0 &&
                 m_door.giveName(m_file.get(), m_temporary) == 0);
    return m_isNamed;
}

bool SuccessorFile::takePlace() {
    if (!giveName() || m_file.close() != 0 || m_door.rename(m_temporary, m_path) != 0) {
        return false;
    }
    m_isNamed = false;
    return true;
}

}  // namespace jsonpad
