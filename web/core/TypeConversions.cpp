#include "core/TypeConversions.h"

namespace DOVA {

namespace {

struct AlignmentTexts {
    const char* written;
    const char* read;  // null: clients never write it
};

// By the number of the alignment.
constexpr AlignmentTexts s_alignments[] = {
    {"", nullptr},
    {"AlignTop", nullptr},
    {"AlignLeftAndTop", "AlignLeftAndTop"},
    {"AlignHCenterAndTop", "AlignHCenterandTop"},
    {"AlignRightAndTop", "AlignRightAndTop"},
    {"AlignLeftAndVCenter", "AlignLeftAndVCenter"},
    {"AlignCenter", "AlignCenter"},
    {"AlignRightAndVCenter", "AlignRightAndVCenter"},
    {"AlignBottom", nullptr},
    {"AlignLeftAndBottom", "AlignLeftAndBottom"},
    {"AlignHCenterAndBottom", "AlignHCenterAndBottom"},
    {"AlignRightAndBottom", "AlignRightAndBottom"},
};
constexpr unsigned s_alignmentCount = sizeof(s_alignments) / sizeof(s_alignments[0]);

}  // namespace

std::string DV2Web(Alignment alignment) {
    const auto number = static_cast<unsigned>(alignment);
    return number < s_alignmentCount ? s_alignments[number].written : "";
}

Alignment Web2DV(const std::string& text) {
    for (unsigned number = 0; number < s_alignmentCount; ++number) {
        if (s_alignments[number].read && text == s_alignments[number].read) {
            return static_cast<Alignment>(number);
        }
    }
    return Alignment::None;
}

std::string DV2Web(ComboInsertPolicy policy) {
    switch (policy) {
        case ComboInsertPolicy::NoInsert:
            return "NoInsert";
        case ComboInsertPolicy::InsertAtTop:
            return "InsertAtTop";
        default:
            return "InsertAtBottom";
    }
}

ComboInsertPolicy Qt2DV(const std::string& text) {
    return text == "NoInsert"      ? ComboInsertPolicy::NoInsert
           : text == "InsertAtTop" ? ComboInsertPolicy::InsertAtTop
                                   : ComboInsertPolicy::InsertAtBottom;
}

}  // namespace DOVA
