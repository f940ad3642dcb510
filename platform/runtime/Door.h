#pragma once

#include <boost/asio/io_context.hpp>
#include <functional>
#include <memory>
#include <string>

#include "runtime/HostOptions.h"

namespace DOVA::runtime {

/// Where pages come in.
class Door {
public:
    /// A gateway of this process; or, for a program that was started for one (it has DOVA_LINK and
    /// DOVA_LINK_KEY in its environment, from where they are taken out), links to that. Calls
    /// `whenAbandoned` when that gateway is gone for good. Throws StartError.
    static std::unique_ptr<Door> open(boost::asio::io_context& loop, const HostOptions& options,
                                      std::function<void()> whenAbandoned);

    virtual ~Door() = default;

    /// What to open in a browser; empty where somebody else tells the user.
    virtual std::string address() const = 0;

    /// Tells the pages what there is to tell, and that the program ends, and calls it then.
    virtual void close(std::function<void()> whenClosed) = 0;
};

}  // namespace DOVA::runtime
