#pragma once

#include <string>

#include "core/WebExport.h"
#include "toolkit/Enumerations.h"

namespace DOVA {

/// The text of an alignment in messages; empty for none and for unknown values.
DOVA_WEB_EXPORT std::string DV2Web(Alignment alignment);
/// The alignment of a text, compared exactly; none for any other text. Not the inverse of DV2Web():
/// it knows "AlignHCenterandTop" with a small "and", and neither "AlignTop" nor "AlignBottom".
DOVA_WEB_EXPORT Alignment Web2DV(const std::string& text);

/// The text of an insert policy; unknown values count as insertion at the bottom.
DOVA_WEB_EXPORT std::string DV2Web(ComboInsertPolicy policy);
/// The insert policy of a text; unknown texts count as insertion at the bottom.
DOVA_WEB_EXPORT ComboInsertPolicy Qt2DV(const std::string& text);

}  // namespace DOVA
