#pragma once

#include <thread>

#include "wiro/Export.h"

namespace WIRO {

/// Names a thread of the process; a small value to copy and compare.
class DOVA_WIRO_EXPORT Thread {
public:
    /// No thread.
    Thread() = default;
    static Thread getCurrentThread();

    bool operator==(const Thread& other) const { return m_id == other.m_id; }
    bool operator!=(const Thread& other) const { return m_id != other.m_id; }

private:
    explicit Thread(std::thread::id id) : m_id(id) {}

    std::thread::id m_id;
};

}  // namespace WIRO
