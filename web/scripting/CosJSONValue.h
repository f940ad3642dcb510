#pragma once

#include "HostTypes.h"
#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

namespace DOVA::web::mi {

/// Describes the script class "dova.web.JSONValue": one JSON value of any kind.
class CosJSONValue final : public ribo::factory::CopyableDataTypeClassInfo<QJsonValue> {
public:
    CosJSONValue(std::string name, std::string qualifiedName);

private:
    void describeOwnMembers() override;
};

}  // namespace DOVA::web::mi
