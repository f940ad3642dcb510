#pragma once

#include <string>
#include <string_view>

/// How values appear in a dialog.
namespace jsonpad {

/// Whether a one-line field shows the text as it is and gives back the same: no line breaks, no
/// halves of surrogate pairs, and not longer than a user would type.
bool fitsField(std::u16string_view text);

/// The beginning of a text that is only shown, not edited; the whole of it unless it is very long.
std::u16string shortened(const std::u16string& text);

}  // namespace jsonpad
