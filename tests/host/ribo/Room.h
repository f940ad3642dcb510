#pragma once

#include <string>

#include "Living.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/COSNamespaceInfo.h"

namespace host::test {

/// Describes an empty namespace that finds "late" members when they are asked for.
class Room : public ribo::COSNamespaceInfo, private Living<Room> {
public:
    using Living<Room>::s_count;
    /// What was asked of rooms: "function late, ".
    static inline std::string s_asked;

    explicit Room(const char* name, bool isDestructible = true, bool canLoad = true)
        : m_name(name), m_isDestructible(isDestructible), m_canLoad(canLoad) {}

    ribo::InternedString getName() const override;
    bool isDestructible() const override { return m_isDestructible; }
    bool canLoadDynamicContent() const override { return m_canLoad; }
    bool attemptToLoadClass(ribo::COSNamespace& self, ribo::InternedString name) const override;
    bool attemptToLoadFunction(ribo::COSNamespace& self, ribo::InternedString name) const override;
    bool attemptToLoadInnerNamespace(ribo::COSNamespace& self,
                                     ribo::InternedString name) const override;

private:
    const char* m_name;
    bool m_isDestructible;
    bool m_canLoad;
};

}  // namespace host::test
