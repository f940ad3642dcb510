#pragma once

#include "core/WebExport.h"

namespace ribo {
class COSNamespace;
}

namespace DOVA::TestAPI {

/// The script namespace "dova.tests", made on the first call and empty: the toolkit's test support
/// adds to it. It belongs to the host's class-object system. Null while there is no namespace
/// "dova", that is, before initialize_dova2_web() and after terminate_dova2_web(). Main thread.
/// Throws foundation::bad_alloc when memory runs out.
DOVA_WEB_EXPORT ribo::COSNamespace* getTestsPackage();

}  // namespace DOVA::TestAPI
