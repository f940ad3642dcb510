#pragma once

#include "GalleryPage.h"
#include "toolkit/DVWidget2.h"

namespace gallery {

/// What every widget has: colours, tooltip, sizes, shown or hidden, enabled or disabled.
class LooksPage : public GalleryPage {
public:
    LooksPage(DOVA::DVTabContainer2* book, EventLog& log);

private:
    void addStates(DOVA::DVLayout2& layout);
    void addToolTip(DOVA::DVLayout2& layout);
    void addColours(DOVA::DVLayout2& layout);
    void paint(const std::u16string& schemeName);
    void addSizes(DOVA::DVLayout2& layout);

    DOVA::DVWidget2* m_sample = nullptr;
};

}  // namespace gallery
