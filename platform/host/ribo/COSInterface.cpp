#include "host/ribo/COSInterface.h"

#include "host/ribo/COSNamespace.h"

class COSClient {};

COSClient* COSGetPublicClient() {
    static COSClient everybody;
    return &everybody;
}

namespace ribo {

COSInterface::~COSInterface() = default;

COSNamespace* cosiToNamespace(COSInterface* interface) {
    return dynamic_cast<COSNamespace*>(interface);
}

}  // namespace ribo
