#pragma once

#include <string>
#include <vector>

#include "model/ChangeListener.h"
#include "model/Model.h"

namespace model_test {

/// Keeps every batch as readable lines, such as `+Button`, `Button.label="x"`, `-Button`. The
/// element stands as its type, so that rows of a table need no UUIDs.
class ChangeRecorder : public pf::zero::ChangeListener {
public:
    using Batch = std::vector<std::string>;

    explicit ChangeRecorder(pf::zero::Ref<pf::zero::Model> model) : m_model(std::move(model)) {
        m_model->setChangeListener(this);
    }
    ~ChangeRecorder() override { m_model->setChangeListener(nullptr); }

    void onChanges(const std::vector<pf::zero::Change>& changes) noexcept override {
        Batch batch;
        for (const pf::zero::Change& change : changes) {
            batch.push_back(line(change));
        }
        batches.push_back(batch);
    }

    static std::string line(const pf::zero::Change& change) {
        switch (change.kind) {
            case pf::zero::Change::Kind::Created:
                return "+" + std::string(change.name);
            case pf::zero::Change::Kind::Removed:
                return "-" + std::string(change.name);
            case pf::zero::Change::Kind::Property:
                break;
        }
        return std::string(change.name) + "=" + text(change.value);
    }

    static std::string text(const pf::zero::Value& value) {
        return std::visit([](const auto& held) { return write(held); }, value);
    }

    std::vector<Batch> batches;

private:
    static std::string write(std::monostate) { return "none"; }
    static std::string write(bool value) { return value ? "true" : "false"; }
    static std::string write(std::int32_t value) { return std::to_string(value); }
    static std::string write(const std::u16string& value) {
        return '"' + std::string(value.begin(), value.end()) + '"';
    }
    static std::string write(const pf::zero::SequenceEdit& edit) {
        std::string result = std::to_string(edit.index) + "-" + std::to_string(edit.removed) + "+";
        for (const pf::zero::Primitive& item : edit.inserted) {
            result += std::visit([](const auto& held) { return write(held); }, item);
        }
        return result;
    }

    pf::zero::Ref<pf::zero::Model> m_model;
};

}  // namespace model_test
