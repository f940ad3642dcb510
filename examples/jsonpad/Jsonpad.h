#pragma once

#include <memory>
#include <string>

#include "Document.h"
#include "PadDialog.h"
#include "QuestionDialog.h"
#include "json/JsonSchema.h"

namespace jsonpad {

/// One document, the dialog that shows it, and at times a question about it.
class Jsonpad {
public:
    /// `document` and `schema`, which tells the choices in it, outlive this object; `path` is the
    /// name under which the user knows the document.
    Jsonpad(Document& document, const JsonSchema& schema, const std::string& path);

    /// Shows the document in its present state, unsaved edits included, in a new dialog: there is
    /// a new page, which knows nothing of what an earlier one showed.
    void show();

private:
    void buildDialog();

    void save(JsonFile::IfChanged ifChanged);
    void tellSaved();
    void revert();
    void close();
    void saveAndClose();
    void discardAndClose();
    void stay();

    void askWhetherToSave();
    void askWhetherToOverwrite(const std::string& reason);

    Document& m_document;
    const JsonSchema& m_schema;
    const std::u16string m_fileName;
    std::unique_ptr<PadDialog> m_dialog;
    std::unique_ptr<QuestionDialog> m_question;
};

}  // namespace jsonpad
