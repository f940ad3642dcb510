#pragma once

#include <algorithm>
#include <vector>

#include "wiro/Emission.h"

namespace WIRO::detail {

/// A new list, of `size` entries yet to be filled.
ConnectionList* allocateList(unsigned size);

/// Calls `visit` with every connection in its order. REQUIRES: the links are not marked as sure.
template <class Visit>
void forEach(Links links, Visit visit) {
    if (links.kind() == Links::List) {
        const ConnectionList& list = *links.list();
        std::for_each(list.entries, list.entries + list.size, visit);
    } else if (Connection* one = links.arePromised() ? nullptr : links.one()) {
        visit(one);
    }
}

/// Lists that were replaced and connections that were unlinked.
struct Retired {
    std::vector<const ConnectionList*> lists;
    std::vector<Connection*> connections;

    bool empty() const { return lists.empty() && connections.empty(); }
};

/// True if the system has a process-wide barrier, so that emissions need no fences.
bool hasBarrier();
/// A full fence between what this thread stored before and what it loads afterwards.
void fence();

/// Deletes each of these as soon as no emission uses it, at the latest when the outermost emission
/// of the thread that uses it ends. To be called without the global connection lock: a closure may
/// do anything while it is destroyed.
void retire(const Retired& retired);
/// The same for whoever holds the global connection lock: deletes lists and leaves every connection
/// to the next call of retire().
void retireLists(const Retired& retired);

/// Returns when no other thread runs a handler through one of these connections, or through any
/// connection to this listener.
void waitForHandlers(const std::vector<Connection*>& connections);
void waitForHandlers(const Listener* listener);

}  // namespace WIRO::detail
