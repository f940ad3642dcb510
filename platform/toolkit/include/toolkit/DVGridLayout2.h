#pragma once

#include "toolkit/DVGridLayout2Emitters.h"
#include "toolkit/DVLayout2.h"

namespace DOVA {

/// Widgets in rows and columns. The web backend fills the cells in the order of addition.
class DOVA_TOOLKIT_EXPORT DVGridLayout2 : public DVLayout2 {
public:
    explicit DVGridLayout2(DVObject* parent = nullptr);
    ~DVGridLayout2() override;

    using DVLayout2::addWidget;
    /// `cell`: column, row, columns and rows covered.
    void addWidget(DVObject* widget, diagram::RectTemplate<int> cell,
                   Alignment alignment = Alignment::None) {
        emitters()->gridAddWidget(widget, cell, alignment);
    }

    DVGridLayout2Emitters* emitters() const {
        return static_cast<DVGridLayout2Emitters*>(DVObject2::emitters());
    }
};

}  // namespace DOVA
