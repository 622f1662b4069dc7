// Deadline arithmetic for GetKey and the idle time-out value.
#include "core/IdleDeadline.h"

#include "platform/AdvancedOptions.h"

#include <algorithm>

namespace Tarn {

unsigned IdleTimeoutFromOption(const HostCtl::Adv::AdvancedOption* option) {
    auto* integer = dynamic_cast<const HostCtl::Adv::AdvancedIntegerOption*>(option);
    if (integer == nullptr)
        return kDefaultIdleTimeoutSeconds;
    return static_cast<unsigned>(static_cast<uint32_t>(integer->GetValue()));
}

IdleDeadline::IdleDeadline(Clock::time_point start, unsigned idleTimeoutSeconds, bool useIdleTimeout)
    : dimAt_(start + kDimAfter), inForce_(useIdleTimeout && idleTimeoutSeconds != 0) {
    std::chrono::seconds timeout =
        std::max<std::chrono::seconds>(std::chrono::seconds(idleTimeoutSeconds), kMinimumTimeout);
    idleAt_ = start + timeout;
}

bool IdleDeadline::Expired(Clock::time_point now) const {
    return inForce_ && now >= idleAt_;
}

bool IdleDeadline::DimDue(Clock::time_point now) const {
    return !dimmed_ && now >= dimAt_;
}

std::optional<IdleDeadline::Clock::duration> IdleDeadline::WaitTime(Clock::time_point now) const {
    Clock::time_point until;
    if (!dimmed_)
        until = dimAt_;
    else if (inForce_)
        until = idleAt_;
    else
        return std::nullopt;
    return std::max(until - now, Clock::duration::zero());
}

timeval ToTimeval(IdleDeadline::Clock::duration wait) {
    auto ms = std::chrono::ceil<std::chrono::milliseconds>(wait).count();
    if (ms < 0)
        ms = 0;
    timeval tv{};
    tv.tv_sec = static_cast<time_t>(ms / 1000);
    tv.tv_usec = static_cast<suseconds_t>((ms % 1000) * 1000);
    return tv;
}

} // namespace Tarn
