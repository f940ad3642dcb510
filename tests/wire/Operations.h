#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <string>

#include "Stage.h"

namespace DOVA::test {

/// Makes a call of a row: ["object", "operation", arguments...]. What the object's class does not
/// have is a fault of the row, as is an unknown operation.
void perform(Stage& stage, const QJsonArray& call);

/// The answer to a question of a row, in the form in which the rows write it.
QJsonValue ask(const Stage& stage, const std::string& object, const std::string& question);

}  // namespace DOVA::test
