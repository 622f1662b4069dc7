// AdvancedOptionImpl and UserAdvancedOptionImpl: forwarders to the active option backend.
#include "platform/AdvancedOptions.h"

#include "platform/HostBackends.h"

#include <type_traits>

namespace TesCtl::Adv {

std::unique_ptr<HostCtl::Adv::AdvancedOption> AdvancedOptionImpl::FindOption(const std::string& path) {
    std::optional<Platform::OptionValue> value = Platform::ActiveOptionBackend().Find(path);
    if (!value)
        return nullptr;
    return std::visit(
        [&](const auto& v) -> std::unique_ptr<HostCtl::Adv::AdvancedOption> {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, int64_t>)
                return std::make_unique<HostCtl::Adv::AdvancedIntegerOption>(path, v);
            else if constexpr (std::is_same_v<T, bool>)
                return std::make_unique<HostCtl::Adv::AdvancedBooleanOption>(path, v);
            else
                return std::make_unique<HostCtl::Adv::AdvancedStringOption>(path, v);
        },
        *value);
}

void AdvancedOptionImpl::SetIntegerOption(const std::string& path, int64_t value) {
    Platform::ActiveOptionBackend().SetInteger(path, value);
}

bool UserAdvancedOptionImpl::HasUserOption(const std::string& name) {
    return Platform::ActiveOptionBackend().HasUserOption(name);
}

} // namespace TesCtl::Adv
