#pragma once

#include <string_view>
#include <vector>

#include "model/Change.h"

namespace pf::zero {

/// Hears what changes in a model. On the model's thread.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;

    /// Whether changes of this property are recorded; the base says yes for all. Asked at every
    /// change of a value, so it must be quick.
    virtual bool hears(std::string_view property) const noexcept {
        static_cast<void>(property);
        return true;
    }

    /// Gets what was committed as one, oldest first; `batch` is valid during the call only. Called
    /// from within the write that completed the batch. May read and write the model: what it writes
    /// comes as the next batch, after this call, never nested. May destroy the listener after it
    /// took it from the model with `setChangeListener(nullptr)`.
    virtual void onChanges(const std::vector<Change>& batch) noexcept = 0;
};

}  // namespace pf::zero
