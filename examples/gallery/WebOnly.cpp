#include "WebOnly.h"

#include "core/WebObjectLookup.h"
#include "widgets/WebAbstractButton2.h"
#include "widgets/WebComboBox2.h"
#include "widgets/WebEdit2.h"

namespace gallery {

void setIcon(DOVA::DVAbstractButton2& button, const std::string& file) {
    if (auto* web = DOVA::webObject<DOVA::WebAbstractButton2>(button)) {
        DOVA::Icon icon;
        icon.insertImage(file);
        web->doSetIcon(icon);
    }
}

void setCheckable(DOVA::DVAbstractButton2& button, bool checkable) {
    if (auto* web = DOVA::webObject<DOVA::WebAbstractButton2>(button)) {
        web->doSetCheckable(checkable);
    }
}

void setPlaceholder(DOVA::DVEdit2& edit, const std::u16string& hint) {
    if (auto* web = DOVA::webObject<DOVA::WebEdit2>(edit)) {
        web->doSetPlaceHolderText(hint);
    }
}

void setPlaceholder(DOVA::DVComboBox2& comboBox, const std::u16string& hint) {
    if (auto* web = DOVA::webObject<DOVA::WebComboBox2>(comboBox)) {
        web->doSetPlaceholderText(hint);
    }
}

}  // namespace gallery
