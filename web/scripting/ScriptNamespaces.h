#pragma once

namespace DOVA {

/// Makes "dova" and "dova.web" known to the host's scripts, unless they are. Prints nothing. Throws
/// foundation::bad_alloc for want of memory.
void addScriptNamespaces();

/// Takes both away, the inner one first, with what they list. Classes live on as long as scripts
/// hold instances of theirs.
void detachScriptNamespaces();

}  // namespace DOVA
