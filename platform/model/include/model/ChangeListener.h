#pragma once

#include <string_view>
#include <vector>

#include "model/Change.h"

namespace pf::zero {

/// Hears what changes in a model, for example to mirror it elsewhere.
class ChangeListener {
public:
    virtual ~ChangeListener() = default;

    /// Whether changes of this property are to be recorded; all are unless the listener says
    /// otherwise. Asked for every change, so it must be quick.
    virtual bool hears(std::string_view property) const noexcept {
        static_cast<void>(property);
        return true;
    }

    /// `batch` holds what was committed as one, oldest first; it is valid during the call only.
    /// Comes on the model's thread, from within the write that completed the batch. May read and
    /// write the model: what it writes comes as the next batch, after this call, never nested.
    /// May unset or destroy itself (it unsets itself from the model first).
    virtual void onChanges(const std::vector<Change>& batch) noexcept = 0;
};

}  // namespace pf::zero
