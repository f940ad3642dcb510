#pragma once

#include <functional>

#include "toolkit/DVWidget2.h"

namespace jsonpad {

/// A widget through which a user edits something of a document.
class Field {
public:
    using Handler = std::function<void()>;

    Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    /// Belongs to its parent widget.
    virtual DOVA::DVWidget2& widget() = 0;
    /// Shows what the document says now.
    virtual void show() = 0;
};

}  // namespace jsonpad
