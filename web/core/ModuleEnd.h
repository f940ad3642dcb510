#pragma once

namespace DOVA {

/// Cuts everything loose that points into the module, before its code goes: shuts the module down
/// where the host did not, deletes the web objects that are left, so that no front object is bound
/// to them any more, and the factories. Once; called when the host unloads the module or the
/// process ends, by the destructors of the objects below, whichever is the first.
void endModule() noexcept;

/// Deletes every web object there is, whether its front object lives or not.
void destroyWebObjects() noexcept;

/// Ends the module first. To be the last member of an object that is made while the module runs and
/// is destroyed with it, so that everything that uses the object goes before it.
struct EndsModule {
    EndsModule() = default;
    EndsModule(const EndsModule&) = delete;
    EndsModule& operator=(const EndsModule&) = delete;
    ~EndsModule() { endModule(); }
};

}  // namespace DOVA
