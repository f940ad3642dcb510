#pragma once

#include <functional>
#include <string>
#include <utility>

#include "EventLog.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"
#include "toolkit/DVText2.h"

namespace gallery {

/// A page of the gallery: titled groups, one below the other, and a log for what happens in them.
/// Widgets that are added belong to the page and live as long as it does, so handlers may refer to
/// them.
class GalleryPage : public DOVA::DVTab2 {
public:
    /// The page is the last one of `book` at once; `log` outlives it.
    GalleryPage(DOVA::DVTabContainer2* book, const std::u16string& name, EventLog& log);
    ~GalleryPage() override;

protected:
    /// Adds a group; what is added to its layout stands one below the other.
    DOVA::DVBoxLayout2& addGroup(const std::u16string& title);
    /// Adds a layout whose widgets stand side by side.
    DOVA::DVBoxLayout2& addRow(DOVA::DVLayout2& layout);

    /// Adds a widget or a layout to another layout.
    template <class Child, class... Args>
    Child& add(DOVA::DVLayout2& layout, Args&&... args) {
        auto& child = make<Child>(std::forward<Args>(args)...);
        layout.addWidget(&child);
        return child;
    }

    /// Adds a widget with a text before it that is its label.
    template <class Child, class... Args>
    Child& addLabelled(DOVA::DVLayout2& layout, const std::u16string& label, Args&&... args) {
        auto& text = add<DOVA::DVText2>(layout, label);
        auto& child = add<Child>(layout, std::forward<Args>(args)...);
        text.setBuddy(&child);
        return child;
    }

    /// Adds a push button that does something.
    DOVA::DVButton2& addButton(DOVA::DVLayout2& layout, const std::u16string& label,
                               std::function<void()> onClick);

    /// Puts a line into the log.
    void tell(const std::u16string& event) { m_log.tell(event); }

private:
    EventLog& m_log;
    DOVA::DVBoxLayout2 m_groups;
};

}  // namespace gallery
