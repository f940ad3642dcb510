#pragma once

#include "toolkit/DVContainer2Emitters.h"
#include "toolkit/DVWidget2.h"

namespace DOVA {

class DVLayout2;

/// A widget that holds other widgets, arranged by one layout.
class DOVA_TOOLKIT_EXPORT DVContainer2 : public DVWidget2 {
public:
    ~DVContainer2() override;

    /// Puts the layout into this container; it stays the caller's. An earlier layout is taken out,
    /// with what is in it; null does only that.
    void setLayout(DVLayout2* layout);
    /// The layout last set, null if there is none or it was destroyed.
    DVLayout2* layout() const { return emitters()->getLayout(); }
    /// Column hints for the display; `values` holds `count` integers.
    void setLayoutGrid(int* values, int count) { emitters()->setLayoutGrid(values, count); }

    DVContainer2Emitters* emitters() const {
        return static_cast<DVContainer2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVWidget2::DVWidget2;

private:
    void leaveDisplay() override { hide(); }
};

}  // namespace DOVA
