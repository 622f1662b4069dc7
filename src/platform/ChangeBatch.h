// Host changes that belong together, such as one stage of applying the management network, made on this
// thread while a ChangeBatch lives. The simulated host starts each of them from the state the one before
// wrote, as long as no one else has written since: the run reads host.json once, not once per change. A real
// host needs nothing of it.
#pragma once

namespace Platform {

class ChangeBatch {
public:
    ChangeBatch();
    ~ChangeBatch();
    ChangeBatch(const ChangeBatch&) = delete;
    ChangeBatch& operator=(const ChangeBatch&) = delete;
};

} // namespace Platform
