// The en_US catalogue texts. Entries are ordered by their first id; a text that two ids share is written
// once.
#include "ui/Catalogue.h"

#include <iterator>

namespace Tarn {
namespace {

const CatalogueEntry kEntries[] = {
    {0, kNoId, "Customize System/View Logs"},
    {1, 167, "Shut Down/Restart"},
    {3, kNoId, ""},
    {4, kNoId, "System Customization"},
    {5, 155, "Configure Password"},
    {6, 251, "Configure Lockdown Mode"},
    {7, 44, "Configure Management Network"},
    {8, 131, "Restart Management Network"},
    {9, 214, "Test Management Network"},
    {10, 62, "Network Restore Options"},
    {11, kNoId, "View Support Information"},
    {12, kNoId, "View System Logs"},
    {13, kNoId, "Troubleshooting Options"},
    {14, 179, "Reset System Configuration"},
    {15, kNoId, "Configure Keyboard"},
    {16, kNoId, "Restart Management Network: Error"},
    {17, kNoId, "Enable Management Network: Error"},
    {18, kNoId, "Disable Management Network: Error"},
    {19, kNoId, "Management network interface cannot be found."},
    {20, kNoId, "Operation on the management network interface failed."},
    {21, kNoId, "To prevent unauthorized access to this system, set the password for the user."},
    {22, kNoId,
     "When enabled, lockdown mode prevents users from logging directly into this host. The host will only be "
     "accessible through this local console or an authorized centralized management application."},
    {23, kNoId, "To view or modify this host's management network settings in detail, press <Enter>."},
    {24, kNoId,
     "Restarting the management network interface may be required to restore networking or to renew a DHCP "
     "lease.\n"
     "\n"
     "Restarting the management network will result in a brief network outage that may temporarily affect "
     "running virtual machines.\n"
     "\n"
     "Note: If a renewed DHCP lease results in a new network identity (e.g., IP address or hostname), remote "
     "management software will be disconnected."},
    {25, kNoId,
     "To perform a brief network test, press <Enter>.\n"
     "\n"
     "By default, this test will attempt to ping the configured default gateway, ping the configured primary "
     "and alternate DNS servers, and resolve the configured hostname."},
    {26, kNoId,
     "To view various network restore options like full network restore, move Management network from "
     "misconfigured kDS to standard switch or correct misconfigured kDS Management network port properties."},
    {27, kNoId,
     "Press the corresponding key to view a log.\n"
     "Press <Q> to return to this screen."},
    {28, kNoId,
     "To view various troubleshooting mode options like Enable Corla Shell, Enable SSH and Restart Agents."},
    {29, kNoId,
     "Warning!\n"
     "\n"
     "All system parameters will be reverted to their software defaults, including any parameters customized "
     "by the hardware manufacturer. The root password will be reset to nothing, which may allow unauthorized "
     "access to your system. All virtual machines will be unregistered.\n"
     "\n"
     "This operation requires a restart of the host. It is recommended to previously shut down or migrate "
     "running virtual machines off this host."},
    {30, kNoId,
     "Warning!\n"
     "\n"
     "All custom extensions will be removed.\n"
     "\n"
     "This operation requires a restart of the host. It is recommended to previously shut down or migrate "
     "running virtual machines off this host."},
    {31, kNoId, "Network identity acquired from DHCP server"},
    {32, kNoId, "To select the layout type for the keyboard of this host, press <Enter>."},
    {33, kNoId, "Change default password to prevent unauthorized access"},
    {34, kNoId, "Unknown"},
    {35, kNoId, "IPv4 Address"},
    {36, kNoId, "IPv6 Addresses"},
    {37, kNoId, "Attributed addresses"},
    {38, kNoId, "Default Gateway"},
    {39, kNoId, "Subnet Mask"},
    {40, kNoId, "Hostname"},
    {41, kNoId, "Primary DNS Server"},
    {42, kNoId, "Alternate DNS Server"},
    {43, kNoId, "IPv6 DNS Server"},
    {45, 75, "Network Adapters"},
    {46, kNoId, "VLAN (optional)"},
    {47, 99, "IPv4 Configuration"},
    {48, 104, "IPv6 Configuration"},
    {49, kNoId, "IPv6 is enabled."},
    {50, kNoId, "IPv6 is disabled."},
    {51, 122, "DNS Configuration"},
    {52, kNoId, "Custom DNS Suffixes"},
    {53, kNoId,
     "The adapters listed here provide the default network connection to and from this host. When two or "
     "more adapters are used, connections will be fault-tolerant and outgoing traffic will be "
     "load-balanced."},
    {54, kNoId,
     "A VLAN is a virtual network within a physical network. Because several VLANs can co-exist on the same "
     "physical network segment, VLAN configuration and partitioning is often more flexible, better isolated, "
     "and less expensive than flat networks based on traditional physical topology.\n"
     "\n"
     "If you are unsure how to configure or use a VLAN, it is safe to leave this option unset."},
    {55, kNoId,
     "This host can obtain an IPv4 address and other networking parameters automatically if your network "
     "includes a DHCP server. If not, ask your network administrator for the appropriate settings."},
    {56, kNoId,
     "This host can obtain IPv6 addresses and other networking parameters automatically if your network "
     "includes a DHCPv6 server or supports Router Advertisement."},
    {57, kNoId,
     "This host can be configured to support IPv6. A restart of the host will be required to enable or "
     "disable IPv6."},
    {58, kNoId, "The support for IPv6 will be enabled after the next reboot."},
    {59, kNoId,
     "If this host is configured using DHCP, DNS server addresses and other DNS parameters can be obtained "
     "automatically. If not, ask your network administrator for the appropriate settings."},
    {60, kNoId,
     "When using short, unqualified names, DNS queries will attempt to locate the specified host by "
     "appending the suffixes listed here in the order shown until a match is found or the list is "
     "exhausted.\n"
     "\n"
     "If no suffixes are specified here, a default suffix list is derived from the local domain name."},
    {61, kNoId, "Network Configuration Error"},
    {63, kNoId, "Create Standard Switch"},
    {64, kNoId, "Create Port Group"},
    {65, kNoId, "Migrate Tessel NIC to Standard Switch"},
    {66, 206, "Restore Network Settings"},
    {67, 136, "Restore Standard Switch"},
    {68, 194, "Restore kDS"},
    {69, kNoId, "Create a new standard virtual switch by name and an uplink to be added."},
    {70, kNoId,
     "Create a new port group by name and standard virtual switch to which the port group should be added."},
    {71, kNoId, "Migrate a tesnic to the standard virtual switch of a chosen portgroup."},
    {72, kNoId,
     "Restoring the network settings will revert all network configuration and will automatically configure "
     "the network with defaults.\n"
     "\n"
     "Restoring the network settings will stop all the running virtual machines on the host."},
    {73, kNoId,
     "All management network and associated uplinks can be moved onto a new kSwitch in order to restore "
     "network connectivity to kCenter. All interfaces apart from management interface will be disabled.\n"
     "Try Restore kDS option to manually repair misconfigured kDS."},
    {74, kNoId,
     "Reconfigure properties of misconfigured kDS Management network port.\n"
     "\n"
     "A new kDS host local port will be created with the reconfigured properties and the management network "
     "will be moved to this new port. All other properties will be cloned from original DVPort. This "
     "operation is available only for Orvane kDS"},
    {76, kNoId,
     "Select the adapters for this host's default management network connection. Use two or more adapters "
     "for fault-tolerance and load-balancing."},
    {77, kNoId, "Network Adapters: Warning"},
    {78, kNoId, "One or more of the selected adapters are already used for other connections."},
    {79, kNoId, "Remove these adapters from their current connections?"},
    {80, kNoId, "Invalid IP address"},
    {81, kNoId, "Please reenter a valid IPv4 address (x.x.x.x)."},
    {82, kNoId, "Please reenter a valid IPv6 network address (x:x:x/x)."},
    {83, kNoId, "Invalid IP or IPv6 address."},
    {84, kNoId, "Invalid subnet"},
    {85, kNoId, "Please reenter a valid subnet (x.x.x.x)."},
    {86, kNoId, "Invalid scope"},
    {87, kNoId, "Cannot add a link-local address as static address."},
    {88, kNoId, "Invalid gateway address"},
    {89, kNoId, "Please reenter a valid gateway address (x.x.x.x)."},
    {90, kNoId, "Please reenter a valid IPv6 gateway address (x:x:x)."},
    {91, kNoId, "Link-local addresses are not supported as default gateway."},
    {92, kNoId, "Invalid DNS server address"},
    {93, kNoId, "Please reenter a valid DNS server address (IP or IPv6)."},
    {94, kNoId, "Invalid VLAN ID"},
    {95, kNoId, "Please reenter a valid VLAN ID (1-4095)."},
    {96, kNoId,
     "You entered a VLAN ID of 4095. This host will receive all VLAN-tagged frames and be able to send any "
     "VLAN-tagged frame.\n"
     "\n"
     "Unless this is specifically intended, it is best not to configure a VLAN ID of 4095."},
    {97, kNoId, "If you are unsure how to configure or use a VLAN, it is safe to leave this option unset."},
    {98, kNoId, "VLAN ID (1-4094, or 4095 to access all VLANs):"},
    {100, kNoId,
     "This host can obtain network settings automatically if your network includes a DHCP server. If it does "
     "not, the following settings must be specified:"},
    {101, kNoId, "Disable IPv4 configuration for management network"},
    {102, kNoId, "Use dynamic IPv4 address and network configuration"},
    {103, kNoId, "Set static IPv4 address and network configuration:"},
    {105, kNoId,
     "This host can obtain network settings automatically if your network supports Stateless Address "
     "Autoconfiguration (SLAAC) or includes a DHCPv6 server. If it does not, static settings must be "
     "specified:"},
    {106, kNoId, "Disable IPv6 (restart required)"},
    {107, kNoId, "Use dynamic IPv6 address and network configuration"},
    {108, kNoId, "Use DHCPv6"},
    {109, kNoId, "Set static IPv6 address and network configuration"},
    {110, kNoId, "Static address"},
    {111, kNoId, "Default gateway"},
    {112, kNoId, "Warning"},
    {113, kNoId, "No adapter"},
    {114, kNoId, "Automatic"},
    {115, kNoId, "None"},
    {116, kNoId, "Manual"},
    {117, kNoId, "Set"},
    {118, kNoId, "Not set"},
    {119, kNoId, "Enabled"},
    {120, kNoId, "Disabled"},
    {121, kNoId, "Done."},
    {123, kNoId,
     "This host can only obtain DNS settings automatically if it also obtains its IP configuration "
     "automatically."},
    {124, kNoId, "Obtain DNS server addresses and a hostname automatically"},
    {125, kNoId, "Use the following DNS server addresses and hostname:"},
    {126, kNoId,
     "DNS queries will attempt to locate hosts by appending the suffixes specified here to short, "
     "unqualified names.\n"
     "\n"
     "Use spaces or commas to separate multiple entries."},
    {127, kNoId, "Suffixes:"},
    {128, kNoId, "Restart Management Network: Confirm"},
    {129, kNoId,
     "Restarting the management network will result in a brief network outage. It may disconnect remote "
     "management software and affect running virtual machines."},
    {130, kNoId, "Restart management network now?"},
    {132, kNoId, "Please wait while the management network restarts."},
    {133, kNoId, "Stopping management network."},
    {134, kNoId, "Starting management network."},
    {135, kNoId, "IP address is "},
    {137, kNoId,
     "All management network and associated uplinks can be moved onto a new kSwitch in order to restore "
     "network connectivity to kCenter."},
    {138, kNoId, "Move the management network onto a standard switch?"},
    {139, kNoId, "To manage this host, go to:"},
    {140, kNoId,
     "Warning: DHCP lookup failed. You may be unable to access this system until you customize its network "
     "configuration."},
    {141, kNoId,
     "Warning: Host is running in audit mode. Your configuration will not be persistent across reboots. "
     "Please contact support."},
    {142, kNoId, "Authentication Required"},
    {143, kNoId, "Enter an authorized login name and password for "},
    {144, kNoId, "Enter the smart card login PIN for "},
    {145, kNoId, "Authentication Denied"},
    {146, kNoId, "Direct console access has been disabled by the administrator for "},
    {147, kNoId, "Login Name:"},
    {148, kNoId, "Login Id:"},
    {149, kNoId, "Password:"},
    {150, kNoId, "PIN:"},
    {151, kNoId, "Authentication failed"},
    {152, kNoId, "Invalid login or password."},
    {153, kNoId, "User does not have permission to login to TARN."},
    {154, kNoId,
     "Password has expired.\n"
     "You will be prompted to set a new password and then login again."},
    {156, kNoId, "Setting the password will prevent unauthorized access to this host."},
    {157, kNoId, "Old Password:"},
    {158, kNoId, "New Password:"},
    {159, kNoId, "Confirm Password:"},
    {160, kNoId, "Configure Password: Error"},
    {161, kNoId, "Configure Password: Warning"},
    {162, kNoId, "The old password you entered is incorrect"},
    {163, kNoId, "The new password and the confirmed password do not match."},
    {164, kNoId, "Empty passwords are not allowed."},
    {165, kNoId, "New password is same as old password. Are you sure?"},
    {166, kNoId,
     "The password change operation failed.\n"
     "Please ensure that your password meets the complexity criteria set by the system."},
    {168, kNoId,
     "Remote management software is recommended to safely shut down or restart this host.\n"
     "\n"
     "By default, running virtual machines will be powered off, suspended, or shut down according to the "
     "current system shutdown policy.\n"
     "If this host is part of an HA cluster, then HA will not restart these VMs unless they are forcefully "
     "terminated."},
    {169, kNoId, "Forcefully terminate running VMs, if any ..."},
    {170, kNoId, "Shut Down Host"},
    {171, kNoId, "Shutdown in progress..."},
    {172, kNoId, "Warning: VMs running on the host"},
    {173, kNoId,
     "Host has VMs running. Are you sure you want to shutdown/restart the host or restore the network."},
    {174, kNoId, "Restart Host"},
    {175, kNoId, "Restart in progress..."},
    {176, kNoId, "Reset System Configuration: Confirm"},
    {177, kNoId,
     "Warning! All system parameters will be reverted to their software defaults, and host configuration "
     "will be lost."},
    {178, kNoId, "Reset System Configuration now?"},
    {180, kNoId, "Please wait while the default settings are restored."},
    {181, kNoId, "Default settings are restored. Press <Enter> to restart your host."},
    {182, kNoId, "Remove Custom Extensions: Confirm"},
    {183, kNoId, "Warning! All custom extensions will be removed."},
    {184, kNoId, "Remove custom extensions now?"},
    {185, kNoId, "Remove Custom Extensions"},
    {186, kNoId, "Please wait while the custom extensions are removed."},
    {187, kNoId, "Custom extensions have been removed. Press <Enter> to restart your host."},
    {188, kNoId, "Restore Network Factory Settings"},
    {189, kNoId, "This option will reset the host network configuration to its default setting."},
    {190, kNoId, "Are you sure you want to reset the host network configuration?"},
    {191, kNoId, "Restore to default blocked setting (unblocked) "},
    {192, kNoId, "Select kDS uplinks"},
    {193, kNoId, "Please enter a valid VLAN ID (1-4094)."},
    {195, kNoId,
     "Enter the properties for new kDS host local port that will be created.\n"
     "All other properties will be taken as default."},
    {196, kNoId, "Restore kDS: Error"},
    {197, kNoId, "Unable to restore kDS. Check logs for details."},
    {198, kNoId, "Unable to restore kDS. Restore kDS operation cannot be performed on 3rd party kDS."},
    {199, kNoId, "kDS Uplinks"},
    {200, kNoId, "Select the kDS Uplinks (one or more) to be used by management tesnic"},
    {201, kNoId, "kDS Uplinks: Warning"},
    {202, kNoId, "No uplinks were selected."},
    {203, kNoId, "Do you want to continue?"},
    {204, kNoId, "No kDS Uplinks: Error"},
    {205, kNoId, "No uplinks are configured on the host for this kDS."},
    {207, kNoId, "Please wait while the factory network settings are restored."},
    {208, kNoId, "Powering Off VMs."},
    {209, kNoId, "Auto-configuring network."},
    {210, kNoId, "Configure Management Network: Confirm"},
    {211, kNoId,
     "You have made changes to the host's management network.\n"
     "Applying these changes may result in a brief network outage, disconnect remote management software and "
     "affect running virtual machines. In case IPv6 has been enabled or disabled this will restart your "
     "host."},
    {212, kNoId, "Apply changes and restart management network?"},
    {213, kNoId, "Apply changes and reboot host?"},
    {215, kNoId,
     "By default, this test will attempt to ping your default gateway and DNS servers, and resolve your "
     "hostname."},
    {216, kNoId, "Ping Address"},
    {217, kNoId, "Resolve Hostname"},
    {218, kNoId, "Testing Management Network"},
    {219, kNoId, "You may interrupt the test at any time."},
    {220, kNoId, "Pinging address"},
    {221, kNoId, "Resolving hostname"},
    {222, kNoId, "Failed."},
    {223, kNoId, "OK."},
    {224, kNoId, "Troubleshooting Mode Options"},
    {225, kNoId, "Enable Corla Shell"},
    {226, kNoId, "Disable Corla Shell"},
    {227, kNoId, "Enable SSH"},
    {228, kNoId, "Disable SSH"},
    {229, kNoId, "Corla Shell"},
    {230, kNoId, "SSH Support"},
    {231, kNoId, "Modify Corla Shell and SSH timeouts"},
    {232, kNoId, "Modify TARN idle timeout"},
    {233, kNoId, "Restart Management Agents"},
    {234, kNoId, "Change current state of the Corla Shell"},
    {235, kNoId, "Change current state of SSH"},
    {236, kNoId, "Corla Shell is Enabled"},
    {237, kNoId, "Corla Shell is Disabled"},
    {238, kNoId, "SSH is Enabled"},
    {239, kNoId, "SSH is Disabled"},
    {240, kNoId,
     "The management agents are the programs that allow remote management software to monitor and control "
     "this host.\n"
     "\n"
     "Restarting the management agents will disconnect all remote management software and will affect all "
     "running services."},
    {241, kNoId,
     "Modify the number of minutes that can elapse before you must log in after Corla Shell access is "
     "enabled and the idle timeout for interactive sessions."},
    {242, kNoId, "Modify the number of idle minutes that can elapse before you must log in again in TARN."},
    {243, kNoId, "Restart Management Agents: Confirm"},
    {244, kNoId,
     "{color:red}Warning! Restarting the management agents will disconnect all remote management software. "
     "This will affect all running services.\n"
     "Collection of extra troubleshooting information can take a noticeable amount of time.{/color}"},
    {245, kNoId, "Restart management agents now?"},
    {246, kNoId, "Stopping management agents."},
    {247, kNoId, "Starting management agents."},
    {248, kNoId, "Collect extra troubleshooting information"},
    {249, kNoId, "Collecting host agent live core information."},
    {250, kNoId, "Please, wait ..."},
    {252, kNoId, "When enabled, lockdown mode prevents users from logging directly into this host."},
    {253, kNoId, "Enable lockdown mode"},
    {254, kNoId,
     "If you are having difficulty using your keyboard, choose a layout that matches your keyboard from the "
     "options below."},
    {255, kNoId, "Enable IPv6: Restart Required"},
    {256, kNoId, "This host must be restarted before IPv6 will be enabled."},
    {257, kNoId, "Disable IPv6: Restart Required"},
    {258, kNoId, "This host must be restarted before IPv6 will be disabled."},
    {259, kNoId, "Router advertised"},
    {260, kNoId, "DHCP"},
    {261, kNoId, "STATIC"},
    {262, kNoId, "AUTOCONF"},
    {263, kNoId, "Waiting for DHCP..."},
    {264, kNoId, "Set the timeouts for Corla Shell access (local and remote)"},
    {265, kNoId,
     "Set the number of minutes that can elapse before you must log in after Corla Shell is enabled (the "
     "availability timeout) and the timeout for idle interactive sessions.\n"
     "\n"
     "After the availability timeout expires any running shell instances will remain, but new sessions will "
     "not be allowed.  Changes to idle timeout will apply on next login, but will not affect any existing "
     "sessions.\n"
     "\n"
     "Values are in minutes. Use zero to disable timeouts. Maximum value is 1440 minutes."},
    {266, kNoId, "Availability timeout"},
    {267, kNoId, "Idle timeout"},
    {268, kNoId, "Invalid timeout value"},
    {269, kNoId, "Timeout value must be between 0 (disabled) and 1440 minutes"},
    {270, kNoId, "Set idle timeout for TARN access"},
    {271, kNoId,
     "Set the number of idle minutes that can elapse before you must log in again in TARN.\n"
     "\n"
     "Value is in minutes. Use zero to disable the timeout. Maximum value is 1440 minutes."},
    {272, kNoId, "TARN idle timeout"},
    {273, kNoId, "Operation Failed"},
    {274, kNoId, "Operation Succeeded"},
    {275, kNoId, "Operation Cancelled"},
    {276, kNoId,
     "Enter the properties for the new port group that will be created.\n"
     "All other properties will be taken as default."},
    {277, kNoId, "Please check the syslog for more information."},
    {278, kNoId, "Invalid Argument"},
    {279, kNoId, "Please enter a valid port group name."},
    {280, kNoId, "Standard Switch Details"},
    {281, kNoId, "Switch Name: "},
    {282, kNoId, "Successfully created portgroup: "},
    {283, kNoId, "Portgroup Name: "},
    {284, kNoId, "Uplink is already in use"},
    {285, kNoId, "Please enter a valid standard switch name."},
    {286, kNoId, "Successfully created standard virtual switch: "},
    {287, kNoId,
     "Enter the properties for new standard kSwitch that will be created.\n"
     "All other properties will be taken as default."},
    {288, kNoId, "Please choose which Tessel NIC should be migrated to which portgroup/switch."},
};

} // namespace

std::span<const CatalogueEntry> CatalogueEnUs() {
    return {std::begin(kEntries), std::end(kEntries)};
}

} // namespace Tarn
