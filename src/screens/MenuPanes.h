// The right pane of the System Customization menu as pure text: title, body and footer markup of every
// entry, composed from facts that GeneralWindow gathers from the host.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

class StringFactory;

struct PaneText {
    std::string title;
    std::string body;
    std::string footer;
};

enum class LockdownState { Enabled, Disabled, Unknown };

struct MenuPaneFacts {
    bool emptyPassword = false;
    LockdownState lockdown = LockdownState::Unknown;
    std::string hostname;
    std::string ipv4Address;                // empty when IPv4 is off or there is no management interface
    std::vector<std::string> ipv6Addresses; // "address/prefix"
    std::string keyboardLayout;
    std::string logList;     // LogListText of the files found at this drawing
    std::string supportPage; // SupportPage at the current paging position
};

// The pane of the entry with catalogue id `id` (3, the blank, gives an empty pane).
PaneText MenuPane(const StringFactory& strings, unsigned id, const MenuPaneFacts& facts);

// Rows that the support page may take in a body area of `width` x `height` cells: what the pane adds
// below the page (the password reminder) is measured as it is drawn.
size_t SupportPageRows(const StringFactory& strings, const MenuPaneFacts& facts, int width, int height);

// Host name and management addresses, each under its heading.
std::string ManagementSummary(const StringFactory& strings, const MenuPaneFacts& facts);

} // namespace Tarn
