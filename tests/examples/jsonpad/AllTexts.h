#pragma once

#include <string>
#include <vector>

namespace jsonpad_test {

/// Every text of up to `longest` letters of the alphabet.
inline std::vector<std::string> allTexts(const std::string& alphabet, std::size_t longest) {
    std::vector<std::string> texts{""};
    for (std::size_t at = 0; texts[at].size() < longest; ++at) {
        for (const char letter : alphabet) {
            texts.push_back(texts[at] + letter);
        }
    }
    return texts;
}

}  // namespace jsonpad_test
