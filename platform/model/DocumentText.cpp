#include "DocumentText.h"

#include "model/DocumentName.h"
#include "model/PropertyDefault.h"

namespace tdom::DocumentText {

namespace {

/// Writes each alternative of a value in its own way.
struct Writer {
    void operator()(std::monostate) const { text.raw("null"); }
    void operator()(bool flag) const { text.flag(flag); }
    void operator()(std::int32_t number) const { text.number(number); }
    void operator()(const std::u16string& string) const { text.string(string); }
    void operator()(const pf::zero::SequenceEdit& whole) const {
        char separator = '[';
        for (const pf::zero::Primitive& item : whole.inserted) {
            text.raw(separator);
            write(text, item);
            separator = ',';
        }
        text.raw(whole.inserted.empty() ? "[]" : "]");
    }

    JsonText& text;
};

}  // namespace

void write(JsonText& text, const pf::zero::Value& value) {
    std::visit(Writer{text}, value);
}

void write(JsonText& text, const pf::zero::Primitive& item) {
    std::visit(Writer{text}, item);
}

void write(JsonText& text, const pf::zero::ModelElement& element, const DocumentFilter& wanted) {
    text.raw('{');
    text.string(DocumentName::type);
    text.raw(':');
    text.string(element.typeName());
    element.visitProperties([&](std::string_view name, const pf::zero::Value& value) {
        if (wanted.holds(name) && !PropertyDefault::is(name, value)) {
            text.raw(',');
            text.string(name);
            text.raw(':');
            write(text, value);
        }
    });
    text.raw('}');
}

void write(JsonText& text, const std::vector<pf::zero::Ref<pf::zero::Model>>& models,
           const DocumentFilter& wanted) {
    bool isFirst = true;
    text.raw('{');
    for (const auto& model : models) {
        model->forEachElement([&](const pf::zero::ModelElement& element) {
            text.raw(std::exchange(isFirst, false) ? "\"" : ",\"");
            text.raw(element.getUuid().toString());
            text.raw("\":");
            write(text, element, wanted);
        });
    }
    text.raw('}');
}

}  // namespace tdom::DocumentText
