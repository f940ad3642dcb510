#pragma once

namespace pf::zero {

/// Says which parts a model is made of. The embedded model has one part and nothing to choose, so
/// this is empty; it keeps the place that a site's own model library fills.
struct ModelConstellation {};

}  // namespace pf::zero
