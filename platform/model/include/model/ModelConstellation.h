#pragma once

namespace pf::zero {

/// Which parts a model has. The embedded model has one part and nothing to choose, so this is
/// empty; another platform's model library has its choice here.
struct ModelConstellation {};

}  // namespace pf::zero
