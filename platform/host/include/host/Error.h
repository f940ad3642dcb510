#pragma once

#include <stdexcept>
#include <string>

#include "host/Export.h"

namespace host {

/// An error of the host: a sentence for the user and an identifier for programs. Scripts see it as
/// an error of their own language.
class DOVA_HOST_EXPORT Error : public std::runtime_error {
public:
    /// `identifier` has colons between its parts, "ribo:NoMatchingSignature"; `text` is UTF-8.
    Error(std::string identifier, const std::string& text);
    ~Error() override;

    const std::string& identifier() const noexcept { return m_identifier; }

private:
    std::string m_identifier;
};

}  // namespace host
