// Watches a test host while it lives: each time host.json is opened (a read of the state; writers rename a
// new file into place) and each call added to the call log, in the order they happened.
#pragma once

#include "support/TestHost.h"

#include <string>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

class StateReadWatch {
public:
    enum class Event { Read, Call };

    explicit StateReadWatch(const TestHost& host) : fd_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        inotify_add_watch(fd_, host.Path("/etc/simhost").c_str(), IN_OPEN);
        // Closes between the writes keep the queue from folding two appends into one event.
        inotify_add_watch(fd_, host.Path("/var/log").c_str(), IN_MODIFY | IN_CLOSE_WRITE);
    }
    ~StateReadWatch() { close(fd_); }
    StateReadWatch(const StateReadWatch&) = delete;
    StateReadWatch& operator=(const StateReadWatch&) = delete;

    // What happened since the last call of Events or Reads.
    std::vector<Event> Events() {
        std::vector<Event> events;
        alignas(inotify_event) char buffer[8192];
        for (ssize_t n; (n = read(fd_, buffer, sizeof buffer)) > 0;)
            for (char* p = buffer; p < buffer + n;) {
                const auto* event = reinterpret_cast<const inotify_event*>(p);
                const std::string name = event->len > 0 ? event->name : "";
                if ((event->mask & IN_OPEN) && name == "host.json")
                    events.push_back(Event::Read);
                else if ((event->mask & IN_MODIFY) && name == "simhost-calls.log")
                    events.push_back(Event::Call);
                p += sizeof(inotify_event) + event->len;
            }
        return events;
    }
    int Reads() {
        int reads = 0;
        for (Event e : Events())
            reads += e == Event::Read ? 1 : 0;
        return reads;
    }

private:
    int fd_;
};
