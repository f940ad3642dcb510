#pragma once

#include "toolkit/DVContainer2.h"
#include "toolkit/DVPanel2Emitters.h"

namespace DOVA {

/// A plain container.
class DOVA_TOOLKIT_EXPORT DVPanel2 : public DVContainer2 {
public:
    /// `framed`: the web client draws no frames around panels.
    explicit DVPanel2(DVObject* parent = nullptr, bool framed = false);
    ~DVPanel2() override;

    /// Marks the panel as the row of a dialog's standard buttons. The web backend marks it whatever
    /// the argument, so call it only on such a panel.
    void setButtonPanel(bool buttonPanel) { emitters()->setButtonPanel(buttonPanel); }

    DVPanel2Emitters* emitters() const {
        return static_cast<DVPanel2Emitters*>(DVObject2::emitters());
    }
};

}  // namespace DOVA
