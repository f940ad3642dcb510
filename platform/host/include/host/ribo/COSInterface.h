#pragma once

#include "host/Export.h"

/// Who asks the class-object system for something.
class COSClient;

/// The client that stands for everybody: scripts, modules, the host itself. Lives as long as the
/// process.
DOVA_HOST_EXPORT COSClient* COSGetPublicClient();

namespace ribo {

class COSNamespace;

/// A thing in the class-object system whose kind the caller does not know yet.
class DOVA_HOST_EXPORT COSInterface {
public:
    /// Takes the thing out of the system and frees what the system owns of it, if its description
    /// allows that; this object is gone then. A null client does nothing.
    virtual void cleanUp(COSClient* client) = 0;

protected:
    COSInterface() = default;
    virtual ~COSInterface();
};

/// `interface` as a namespace; null for null and for what is no namespace.
DOVA_HOST_EXPORT COSNamespace* cosiToNamespace(COSInterface* interface);

}  // namespace ribo
