#pragma once

#include <vector>

#include "DocumentFilter.h"
#include "JsonText.h"
#include "model/Model.h"

/// How elements and values stand in the document that pages mirror.
namespace tdom::DocumentText {

/// REQUIRES: `value` is set.
void write(JsonText& text, const pf::zero::Value& value);
void write(JsonText& text, const pf::zero::Primitive& item);

/// An element as an object: its type, and the properties that are wanted and have not their default
/// value.
void write(JsonText& text, const pf::zero::ModelElement& element, const DocumentFilter& wanted);

/// All elements of the models as one object.
void write(JsonText& text, const std::vector<pf::zero::Ref<pf::zero::Model>>& models,
           const DocumentFilter& wanted);

}  // namespace tdom::DocumentText
