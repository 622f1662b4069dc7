// The deadline arithmetic of one GetKey call: when to dim the window, when the idle time-out fires, and how
// long the next wait may last. Pure: the caller supplies the clock readings.
#pragma once

#include <chrono>
#include <optional>
#include <sys/time.h>

namespace HostCtl::Adv {
class AdvancedOption;
}

namespace Tarn {

inline constexpr unsigned kDefaultIdleTimeoutSeconds = 600;

// The idle time-out in seconds for the option's value: the default when there is no integer option.
unsigned IdleTimeoutFromOption(const HostCtl::Adv::AdvancedOption* option);

class IdleDeadline {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds kDimAfter{60};
    // A configured time-out below this counts as this.
    static constexpr std::chrono::seconds kMinimumTimeout{60};

    IdleDeadline(Clock::time_point start, unsigned idleTimeoutSeconds, bool useIdleTimeout);

    bool TimeoutInForce() const { return inForce_; }
    // The idle deadline has passed: the caller throws TarnTimeout.
    bool Expired(Clock::time_point now) const;
    // The window is not dimmed yet and the dimming deadline has passed.
    bool DimDue(Clock::time_point now) const;
    void MarkDimmed() { dimmed_ = true; }
    bool Dimmed() const { return dimmed_; }
    // How long the next wait may last; empty means without a time-out.
    std::optional<Clock::duration> WaitTime(Clock::time_point now) const;

private:
    Clock::time_point dimAt_;
    Clock::time_point idleAt_;
    bool inForce_;
    bool dimmed_ = false;
};

// A wait time as a poll interval, rounded up to whole milliseconds so that a wait never ends just short of
// its deadline and spins.
timeval ToTimeval(IdleDeadline::Clock::duration wait);

} // namespace Tarn
