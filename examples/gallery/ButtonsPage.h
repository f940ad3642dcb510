#pragma once

#include "GalleryPage.h"

namespace gallery {

/// Push buttons, checkable ones among them, and check boxes.
class ButtonsPage : public GalleryPage {
public:
    ButtonsPage(DOVA::DVTabContainer2* book, EventLog& log);

private:
    void addPushButtons();
    void addIcons();
    void addCheckableButton();
    void addCheckBoxes();
};

}  // namespace gallery
