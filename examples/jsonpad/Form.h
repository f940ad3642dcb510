#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Document.h"
#include "Field.h"
#include "json/JsonSchema.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVContainer2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVTabContainer2.h"

namespace jsonpad {

/// The fields of a document: those of the root on top, then a tab for each object in it; in these a
/// group box for each list and object.
class Form {
public:
    /// Puts the fields, which belong to `window`, into `rows`. `document` and `schema` outlive this
    /// object. `onEdit` is called after each edit.
    Form(DOVA::DVContainer2& window, DOVA::DVBoxLayout2& rows, Document& document,
         const JsonSchema& schema, Field::Handler onEdit);

    /// Shows the document's present values in the fields of these members.
    void show(const std::vector<std::size_t>& members);

private:
    /// Where the members of an object go: short ones into the grid, big ones below it.
    struct Section {
        DOVA::DVContainer2& owner;
        DOVA::DVBoxLayout2& rows;
        DOVA::DVGridLayout2& grid;
    };

    Section openSection(DOVA::DVContainer2& owner, DOVA::DVBoxLayout2& rows);
    Section openSection(DOVA::DVContainer2& owner);
    Section openObject(const Section& around, std::size_t member);

    void addMember(const Section& section, std::size_t member);
    void addRow(const Section& section, std::size_t member);
    void addList(const Section& section, std::size_t member);
    std::unique_ptr<Field> makeField(DOVA::DVObject2& parent, std::size_t member);
    std::unique_ptr<Field> makeText(DOVA::DVObject2& parent, Document::Place place,
                                    const std::vector<std::u16string>& choices);

    Document& m_document;
    const JsonSchema& m_schema;
    const Field::Handler m_onEdit;
    DOVA::DVTabContainer2* m_tabs = nullptr;
    std::vector<std::unique_ptr<Field>> m_fields;  ///< of each member; null for what is only shown
};

}  // namespace jsonpad
