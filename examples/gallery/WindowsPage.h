#pragma once

#include <memory>

#include "GalleryPage.h"
#include "SecondWindow.h"

namespace gallery {

/// More windows, modal or not, and message boxes.
class WindowsPage : public GalleryPage {
public:
    WindowsPage(DOVA::DVTabContainer2* book, EventLog& log);
    ~WindowsPage() override;

private:
    void addWindows();
    void addMessages();
    void open(bool isModal);
    void closeUnlessRefused();
    void close();

    std::unique_ptr<SecondWindow> m_window;
};

}  // namespace gallery
