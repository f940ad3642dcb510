#pragma once

#include <memory>
#include <vector>

#include "GalleryPage.h"
#include "toolkit/DVPanel2.h"

namespace gallery {

/// Tab containers: one with its tabs on any side, one whose pages come and go.
class TabsPage : public GalleryPage {
public:
    TabsPage(DOVA::DVTabContainer2* book, EventLog& log);
    ~TabsPage() override;

private:
    void addSides();
    void addStates(DOVA::DVLayout2& row, DOVA::DVTabContainer2& tabs);
    void addDocuments();
    void openDocument();
    void closeDocument(int index);

    DOVA::DVTabContainer2* m_documents = nullptr;
    std::vector<std::unique_ptr<DOVA::DVTab2>> m_pages;  // by position; null once closed
};

}  // namespace gallery
