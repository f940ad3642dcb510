#pragma once

#include <functional>
#include <vector>

#include "model/Model.h"

namespace pf::zero {

/// The models of the process, for the one mirror that follows them all, whoever made them. Adding
/// and removing may be done on any thread.
class LivingModels {
public:
    using Observer = std::function<void(const Ref<Model>& model)>;

    static void add(Model& model);
    static void remove(Model& model) noexcept;

    /// Tells the observer, if there is one, of a model that was just created.
    static void announce(const Ref<Model>& model);

    /// Calls `observer` for every model that there is, and from now on for every new one on the
    /// thread that makes it. One observer at a time; an empty one takes it back.
    static void observe(const Observer& observer);
};

}  // namespace pf::zero
