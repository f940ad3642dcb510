#pragma once

#include "JSONClassInfo.h"

namespace DOVA::web::mi {

/// Describes the script class "dova.web.JSONObject": a JSON object.
class CosJSONObject final : public JSONClassInfo<QJsonObject> {
public:
    CosJSONObject(std::string name, std::string qualifiedName);

private:
    void describeOwnMembers() override;
};

}  // namespace DOVA::web::mi
