#pragma once

#include "JSONClassInfo.h"

namespace DOVA::web::mi {

/// Describes the script class "dova.web.JSONArray": a JSON array. Its indices count from 0.
/// An undefined value becomes null where it is inserted, appended or prepended; "replace" stores it
/// as it is, and it is written as null.
class CosJSONArray final : public JSONClassInfo<QJsonArray> {
public:
    CosJSONArray(std::string name, std::string qualifiedName);

private:
    void describeOwnMembers() override;
};

}  // namespace DOVA::web::mi
