#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <stdexcept>

#include "WireRows.h"
#include "model/Button.h"
#include "model/CheckBox.h"
#include "model/ComboBox.h"
#include "model/Edit.h"
#include "model/FollowingPage.h"
#include "model/MirrorFixture.h"
#include "model/Text.h"

namespace {

using DOVA::test::WireRow;
using pf::zero::Model;
using pf::zero::Uuid;
using tdom::as;

std::u16string textOf(const QJsonValue& value) {
    return value.toString().toStdU16String();
}

std::optional<bool> flagOf(const QJsonValue& value) {
    return value.isBool() ? std::optional<bool>(value.toBool()) : std::nullopt;
}

std::vector<std::u16string> textsOf(const QJsonValue& value) {
    std::vector<std::u16string> texts;
    for (const QJsonValue each : value.toArray()) {
        texts.push_back(textOf(each));
    }
    return texts;
}

void setText(const tdom::Base& element, const std::u16string& text) {
    if (const auto edit = as<tdom::Edit>(element)) {
        edit->setText(text);
    } else if (const auto box = as<tdom::ComboBox>(element)) {
        box->setText(text);
    } else {
        as<tdom::Text>(element)->setText(text);
    }
}

void setPlaceholder(const tdom::Base& element, const std::u16string& text) {
    if (const auto edit = as<tdom::Edit>(element)) {
        edit->setPlaceholder(text);
    } else {
        as<tdom::ComboBox>(element)->setPlaceholder(text);
    }
}

auto& itemsOf(const tdom::Base& element) {
    return as<tdom::ComboBox>(element)->getItemsMutable();
}

tdom::Base create(const pf::zero::Ref<Model>& model, const Uuid& uuid, const QString& kind) {
    return kind == "Button"     ? tdom::Base(tdom::Button::create(model, uuid))
           : kind == "CheckBox" ? tdom::Base(tdom::CheckBox::create(model, uuid))
           : kind == "ComboBox" ? tdom::Base(tdom::ComboBox::create(model, uuid))
           : kind == "Edit"     ? tdom::Base(tdom::Edit::create(model, uuid))
                                : tdom::Base(tdom::Text::create(model, uuid));
}

using Operation = void (*)(const tdom::Base& element, const QJsonArray& call);

const std::map<QString, Operation> s_operations = {
    {"tag", [](auto& e, auto& call) { e->setTag(textOf(call[2])); }},
    {"visible", [](auto& e, auto& call) { as<tdom::Element>(e)->setVisible(call[2].toBool()); }},
    {"enable", [](auto& e, auto& call) { as<tdom::Element>(e)->setEnabled(flagOf(call[2])); }},
    {"tooltip", [](auto& e, auto& call) { as<tdom::Element>(e)->setTooltip(textOf(call[2])); }},
    {"label", [](auto& e, auto& call) { as<tdom::BaseButton>(e)->setLabel(textOf(call[2])); }},
    {"icon", [](auto& e, auto& call) { as<tdom::BaseButton>(e)->setIcon(textOf(call[2])); }},
    {"checkable",
     [](auto& e, auto& call) { as<tdom::BaseButton>(e)->setCheckable(call[2].toBool()); }},
    {"checked", [](auto& e, auto& call) { as<tdom::BaseButton>(e)->setChecked(call[2].toBool()); }},
    {"defaultbutton",
     [](auto& e, auto& call) { as<tdom::Button>(e)->setDefaultbutton(call[2].toBool()); }},
    {"text", [](auto& e, auto& call) { setText(e, textOf(call[2])); }},
    {"placeholder", [](auto& e, auto& call) { setPlaceholder(e, textOf(call[2])); }},
    {"editable", [](auto& e, auto& call) { as<tdom::ComboBox>(e)->setEditable(call[2].toBool()); }},
    {"currentindex",
     [](auto& e, auto& call) { as<tdom::ComboBox>(e)->setCurrentindex(call[2].toInt()); }},
    {"append", [](auto& e, auto& call) { itemsOf(e).push_back(textOf(call[2])); }},
    {"insert",
     [](auto& e, auto& call) {
         itemsOf(e).insert(static_cast<std::size_t>(call[2].toInt()), textsOf(call[3]));
     }},
    {"erase",
     [](auto& e, auto& call) { itemsOf(e).erase(static_cast<std::size_t>(call[2].toInt())); }},
    {"clear", [](auto& e, auto&) { itemsOf(e).clear(); }},
};

class ModelRows : public model_test::MirrorFixture, public testing::WithParamInterface<WireRow> {
protected:
    void perform(const QJsonArray& call) {
        const QString name = call[0].toString();
        const QString operation = call[1].toString();
        if (operation == "begin") {
            m_groups.push_back(std::make_unique<Model::ChangeGroup>(m_model));
        } else if (operation == "end") {
            m_groups.pop_back();
        } else if (operation == "create") {
            const Uuid uuid = m_uuids.try_emplace(name, Uuid::generate()).first->second;
            m_elements[name] = create(m_model, uuid, call[2].toString());
        } else if (operation == "destroy") {
            m_elements.erase(name);
        } else {
            s_operations.at(operation)(m_elements.at(name), call);
        }
    }

    /// A value of the row with the elements' UUIDs in it.
    QJsonValue filled(const QJsonValue& value) const {
        QString text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        for (const auto& [name, uuid] : m_uuids) {
            text.replace("${" + name + "}", QString::fromStdString(uuid.toString()));
        }
        return QJsonDocument::fromJson(text.toUtf8()).array()[0];
    }

    QJsonArray expected(const QJsonObject& step) {
        QJsonArray messages;
        if (step.contains("patch")) {
            messages.append(
                QJsonObject{{"version", ++m_version}, {"patch", filled(step["patch"])}});
        }
        if (step.contains("snapshot")) {
            messages.append(
                QJsonObject{{"version", m_version}, {"snapshot", filled(step["snapshot"])}});
        }
        return messages;
    }

    std::map<QString, tdom::Base> m_elements;
    std::map<QString, Uuid> m_uuids;
    std::vector<std::unique_ptr<Model::ChangeGroup>> m_groups;
    model_test::FollowingPage m_followed;
    int m_version = 0;
};

TEST_P(ModelRows, SendWhatAPageCanFollow) {
    bool isFollowing = false;
    for (const QJsonValue each : GetParam().steps()) {
        const QJsonObject step = each.toObject();
        for (const QJsonValue call : step["calls"].toArray()) {
            perform(call.toArray());
        }
        if (step.contains("snapshot")) {
            isFollowing = true;
            ask();
        }
        const QJsonArray messages = endTurn();
        EXPECT_EQ(compact(messages), compact(expected(step)));
        m_followed.receive(messages);
    }
    const QJsonObject document = filled(GetParam().content["document"]).toObject();
    EXPECT_TRUE(m_followed.fits);
    EXPECT_EQ(m_followed.document, isFollowing ? document : QJsonObject());
    ask();
    EXPECT_EQ(compact(endTurn()), compact(expected({{"snapshot", document}})));
}

INSTANTIATE_TEST_SUITE_P(Rows, ModelRows,
                         testing::ValuesIn(DOVA::test::readRows({"model"}, [](const WireRow&) {
                             return true;
                         })));

}  // namespace
