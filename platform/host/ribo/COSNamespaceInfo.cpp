#include "host/ribo/COSNamespaceInfo.h"

namespace ribo {

COSNamespaceInfo::~COSNamespaceInfo() = default;

}  // namespace ribo
