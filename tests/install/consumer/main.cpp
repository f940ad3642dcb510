#include <iostream>

#include "core/WebObjectLookup.h"
#include "runtime/Host.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "widgets/WebButton2.h"

/// Serves one button, if the module behind it is the library that this program was linked with.
int main() {
    DOVA::runtime::Host host({});
    DOVA::DVDialog2 dialog;
    DOVA::DVButton2 button(&dialog, u"Push");
    if (!DOVA::webObject<DOVA::WebButton2>(button)) {
        return 1;
    }
    host.onPage([&dialog] { dialog.show(); });
    std::cout << host.address() << std::endl;
    return host.run();
}
