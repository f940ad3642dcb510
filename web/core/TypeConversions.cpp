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
constexpr ComboInsertPolicy s_noInsert{0};
constexpr ComboInsertPolicy s_insertAtTop{1};
constexpr ComboInsertPolicy s_insertAtBottom{2};
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
    return {};
}

std::string DV2Web(ComboInsertPolicy policy) {
    return policy == s_noInsert      ? "NoInsert"
           : policy == s_insertAtTop ? "InsertAtTop"
                                     : "InsertAtBottom";
}

ComboInsertPolicy Qt2DV(const std::string& text) {
    return text == "NoInsert"      ? s_noInsert
           : text == "InsertAtTop" ? s_insertAtTop
                                   : s_insertAtBottom;
}

}  // namespace DOVA
