#pragma once

#include "GalleryPage.h"
#include "toolkit/DVPanel2.h"

namespace gallery {

/// Group boxes, panels and layouts.
class LayoutsPage : public GalleryPage {
public:
    LayoutsPage(DOVA::DVTabContainer2* book, EventLog& log);

private:
    void addGroups();
    void addBoxes();
    void addColumn(DOVA::DVLayout2& row, const std::u16string& name);
    void addGrid();
    void addPanel();
};

}  // namespace gallery
