#include "Form.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "ChoiceField.h"
#include "FieldTexts.h"
#include "ListField.h"
#include "SwitchField.h"
#include "TextField.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVText2.h"

namespace jsonpad {

Form::Form(DOVA::DVContainer2& window, DOVA::DVBoxLayout2& rows, Document& document,
           const JsonSchema& schema, Field::Handler onEdit)
    : m_document(document),
      m_schema(schema),
      m_onEdit(std::move(onEdit)),
      m_fields(document.members().size()) {
    std::map<std::size_t, Section> sections;
    sections.emplace(JsonOutline::root, openSection(window, rows));
    for (std::size_t member = 0; member < document.members().size(); ++member) {
        const Section& section = sections.at(document.members()[member].parent);
        if (document.members()[member].kind == JsonKind::Object) {
            sections.emplace(member, openObject(section, member));
        } else {
            addMember(section, member);
        }
    }
    if (m_tabs != nullptr) {
        rows.addWidget(m_tabs);
    }
}

Form::Section Form::openSection(DOVA::DVContainer2& owner, DOVA::DVBoxLayout2& rows) {
    auto& grid = owner.make<DOVA::DVGridLayout2>();
    rows.addWidget(&grid);
    return {owner, rows, grid};
}

Form::Section Form::openSection(DOVA::DVContainer2& owner) {
    auto& rows = owner.make<DOVA::DVBoxLayout2>();
    owner.setLayout(&rows);
    return openSection(owner, rows);
}

Form::Section Form::openObject(const Section& around, std::size_t member) {
    const JsonFile::Member& object = m_document.members()[member];
    const std::u16string title = shortened(object.key);
    if (object.parent != JsonOutline::root) {
        auto& group = around.owner.make<DOVA::DVGroupBox2>(title);
        around.rows.addWidget(&group);
        return openSection(group);
    }
    if (m_tabs == nullptr) {
        m_tabs = &around.owner.make<DOVA::DVTabContainer2>();
    }
    return openSection(m_tabs->make<DOVA::DVTab2>(title));
}

void Form::addMember(const Section& section, std::size_t member) {
    if (m_document.members()[member].kind == JsonKind::List) {
        addList(section, member);
    } else {
        addRow(section, member);
    }
    if (m_fields[member]) {
        m_fields[member]->show();
    }
}

void Form::addRow(const Section& section, std::size_t member) {
    auto& key = section.owner.make<DOVA::DVText2>(shortened(m_document.members()[member].key));
    m_fields[member] = makeField(section.owner, member);
    DOVA::DVWidget2& shown =
        m_fields[member] ? m_fields[member]->widget()
                         : section.owner.make<DOVA::DVText2>(shortened(m_document.text({member})));
    key.setBuddy(&shown);
    section.grid.addWidget(&key);
    section.grid.addWidget(&shown);
}

std::unique_ptr<Field> Form::makeField(DOVA::DVObject2& parent, std::size_t member) {
    switch (m_document.members()[member].kind) {
        case JsonKind::String:
            return fitsField(m_document.text({member}))
                       ? makeText(parent, {member}, m_schema.choices(m_document.path(member)))
                       : nullptr;
        case JsonKind::Number:
            return makeText(parent, {member}, {});
        case JsonKind::Boolean:
            return std::make_unique<SwitchField>(parent, m_document, Document::Place{member},
                                                 m_onEdit);
        default:
            return nullptr;
    }
}

std::unique_ptr<Field> Form::makeText(DOVA::DVObject2& parent, Document::Place place,
                                      const std::vector<std::u16string>& choices) {
    if (choices.empty()) {
        return std::make_unique<TextField>(parent, m_document, place, m_onEdit);
    }
    return std::make_unique<ChoiceField>(parent, m_document, place, choices, m_onEdit);
}

/// All rows of a list are of one make: what is added is as the others are.
void Form::addList(const Section& section, std::size_t member) {
    const auto& elements = m_document.elements(member);
    const auto areAll = [&elements](JsonKind kind) {
        return std::all_of(elements.begin(), elements.end(),
                           [kind](const auto& element) { return element.kind == kind; });
    };
    const bool areSwitches = !elements.empty() && areAll(JsonKind::Boolean);
    const std::vector<std::u16string> choices =
        areAll(JsonKind::String) ? m_schema.choices(m_document.path(member), true)
                                 : std::vector<std::u16string>();
    const auto make = [this, areSwitches, choices](
                          DOVA::DVObject2& parent,
                          Document::Place place) -> std::unique_ptr<Field> {
        if (areSwitches) {
            return std::make_unique<SwitchField>(parent, m_document, place, m_onEdit);
        }
        return makeText(parent, place, choices);
    };
    const auto first = choices.empty() ? std::nullopt : std::optional(choices.front());
    m_fields[member] =
        std::make_unique<ListField>(section.owner, m_document, member, make, first, m_onEdit);
    section.rows.addWidget(&m_fields[member]->widget());
}

void Form::show(const std::vector<std::size_t>& members) {
    for (const std::size_t member : members) {
        if (m_fields[member]) {
            m_fields[member]->show();
        }
    }
}

}  // namespace jsonpad
