#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/ChangeListener.h"
#include "model/Model.h"

namespace model_test {

/// Keeps every batch as readable lines, such as `+Button`, `label=x`, `-Button`.
class ChangeRecorder : public pf::zero::ChangeListener {
public:
    using Batch = std::vector<std::string>;

    explicit ChangeRecorder(pf::zero::Ref<pf::zero::Model> listenedTo)
        : model(std::move(listenedTo)) {
        model->setChangeListener(this);
    }
    ~ChangeRecorder() override {
        if (model) {
            model->setChangeListener(nullptr);
        }
    }

    void onChanges(const std::vector<pf::zero::Change>& changes) noexcept override {
        if (meanwhile) {
            meanwhile();
        }
        batches.emplace_back();
        for (const pf::zero::Change& change : changes) {
            batches.back().push_back(line(change));
            elements.push_back(change.element);
        }
    }

    static std::string text(const pf::zero::Value& value) {
        if (const auto* flag = std::get_if<bool>(&value)) {
            return *flag ? "true" : "false";
        }
        const auto* text = std::get_if<std::u16string>(&value);
        return text != nullptr ? std::string(text->begin(), text->end()) : "none";
    }

    pf::zero::Ref<pf::zero::Model> model;
    std::function<void()> meanwhile;  ///< called before a batch is noted, so nesting shows
    std::vector<Batch> batches;
    std::vector<pf::zero::Uuid> elements;

private:
    static std::string line(const pf::zero::Change& change) {
        const std::string name(change.name);
        if (change.kind == pf::zero::Change::Kind::Property) {
            return name + "=" + text(change.value);
        }
        return (change.kind == pf::zero::Change::Kind::Created ? "+" : "-") + name;
    }
};

}  // namespace model_test
