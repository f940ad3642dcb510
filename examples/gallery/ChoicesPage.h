#pragma once

#include "GalleryPage.h"
#include "toolkit/DVComboBox2.h"

namespace gallery {

/// Combo boxes: one to choose from, one to type in, one whose items come and go.
class ChoicesPage : public GalleryPage {
public:
    ChoicesPage(DOVA::DVTabContainer2* book, EventLog& log);

private:
    void addFixed();
    void addEditable();
    void addChanging();
    void addItemButtons(DOVA::DVLayout2& row, DOVA::DVComboBox2& guests);
    void removeSelected(DOVA::DVComboBox2& guests);
};

}  // namespace gallery
