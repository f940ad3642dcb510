#pragma once

#include "toolkit/DVBoxLayout2Emitters.h"
#include "toolkit/DVLayout2.h"

namespace DOVA {

/// One widget after the other. A box layout is nowhere until a container takes it with setLayout()
/// or another layout with addWidget().
class DOVA_TOOLKIT_EXPORT DVBoxLayout2 : public DVLayout2 {
public:
    /// `direction`: the web backend leaves that to the client, which makes a column of it.
    explicit DVBoxLayout2(DVObject* parent = nullptr, Direction direction = Direction::TopToBottom);
    ~DVBoxLayout2() override;

    using DVLayout2::addWidget;
    /// `stretch`: the share of spare room; the web backend leaves that to the client.
    void addWidget(DVObject* widget, int stretch, Alignment alignment = Alignment::None) {
        emitters()->boxAddWidget(widget, stretch, alignment);
    }

    DVBoxLayout2Emitters* emitters() const {
        return static_cast<DVBoxLayout2Emitters*>(DVObject2::emitters());
    }
};

}  // namespace DOVA
