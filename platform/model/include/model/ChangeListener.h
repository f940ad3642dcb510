#pragma once

#include <vector>

#include "model/Change.h"

namespace pf::zero {

/// Hears what changes in a model, for example to mirror it elsewhere.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;

    /// `batch` holds what was committed as one, oldest first; it is valid during the call only.
    /// Comes on the model's thread, from within the write that completed the batch. May read and
    /// write the model: what it writes comes as the next batch, after this call, never nested.
    /// May unset or destroy itself (it unsets itself from the model first).
    virtual void onChanges(const std::vector<Change>& batch) noexcept = 0;
};

}  // namespace pf::zero
