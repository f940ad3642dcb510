#pragma once

#include "GalleryPage.h"
#include "toolkit/DVEdit2.h"

namespace gallery {

/// Fields for a line of text, and texts to read.
class TextsPage : public GalleryPage {
public:
    TextsPage(DOVA::DVTabContainer2* book, EventLog& log);

private:
    void addFields();
    static void putInCapitals(DOVA::DVEdit2& edit);
    void addNameButtons(DOVA::DVLayout2& rows, DOVA::DVEdit2& name);
    void addTexts();
};

}  // namespace gallery
