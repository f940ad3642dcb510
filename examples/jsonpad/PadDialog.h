#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Document.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace jsonpad {

/// Shows a document, one row a member, and writes into it what the user does. What the buttons
/// mean is for its owner to say.
class PadDialog : public DOVA::DVDialog2 {
public:
    /// `document` outlives the dialog.
    PadDialog(Document& document, std::u16string fileName);
    ~PadDialog() override;

    /// Says in the title that everything is saved, until the next edit.
    void showSaved();
    /// Shows the document's present values in the fields of these members.
    void showAgain(const std::vector<std::size_t>& members);

    DOVA::DVButton2& saveButton() { return m_save; }
    DOVA::DVButton2& revertButton() { return m_revert; }
    DOVA::DVButton2& closeButton() { return m_close; }

private:
    void addRows();
    DOVA::DVWidget2& makeField(std::size_t member);
    DOVA::DVWidget2& makeEdit(std::size_t member);
    DOVA::DVWidget2& makeCheckBox(std::size_t member);
    DOVA::DVWidget2& makeText(std::size_t member);
    void addButtons();

    void edited(std::size_t member, bool isValid);
    void showState();
    void showTitle(const std::u16string& state);
    std::u16string status() const;

    Document& m_document;
    const std::u16string m_fileName;
    std::vector<DOVA::DVWidget2*> m_fields;
    std::u16string m_title;
    DOVA::DVBoxLayout2 m_rows;
    DOVA::DVGridLayout2 m_grid;
    DOVA::DVText2 m_status;
    DOVA::DVPanel2 m_buttons;
    DOVA::DVBoxLayout2 m_buttonRow;
    DOVA::DVButton2 m_save;
    DOVA::DVButton2 m_revert;
    DOVA::DVButton2 m_close;
};

}  // namespace jsonpad
