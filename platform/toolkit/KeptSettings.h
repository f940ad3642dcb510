#pragma once

#include "toolkit/Geometry.h"

namespace DOVA {

class DVWidget2;

/// What the program has set on widgets whose descriptions leave it out, and the focus that was
/// given to one which the display did not know yet. Written once more after each description;
/// programs that set nothing of the kind pay nothing. Main thread.
class KeptSettings {
public:
    enum class Setting {
        MinimumSize,
        MaximumSize,
        PreferredSize,
        Size,
        Position,
        Place,
        ObjectName,
        Own  // what the widget tells itself: DVWidget2::tellLeftOut()
    };

    /// Takes the place of an earlier value. Of a least or greatest size a negative side stays as it
    /// was.
    static void keep(const DVWidget2& widget, Setting setting,
                     diagram::RectTemplate<int> value = {});
    /// The last widget that is given the focus has it.
    static void keepFocus(const DVWidget2& widget);
    static void forget(const DVWidget2& widget);

    /// Writes what is kept of `top` and everything below it, in the order in which it was set; the
    /// focus comes last, and that only once.
    static void write(const DVWidget2& top);
};

}  // namespace DOVA
