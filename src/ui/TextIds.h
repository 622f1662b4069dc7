// The string catalogue's ids by name; each value is the catalogue number the text is filed under. Ids that
// share a text have two names: the second one (...Title) is the one the dialogs use as their title.
#pragma once

namespace Tarn::TextId {

inline constexpr unsigned CustomizeSystem = 0; // Customize System/View Logs
inline constexpr unsigned ShutDownRestart = 1; // Shut Down/Restart
inline constexpr unsigned VersionLine = 2;     // product and version line, built from the host
inline constexpr unsigned Blank = 3;
inline constexpr unsigned SystemCustomization = 4;            // System Customization
inline constexpr unsigned ConfigurePassword = 5;              // Configure Password
inline constexpr unsigned ConfigureLockdownMode = 6;          // Configure Lockdown Mode
inline constexpr unsigned ConfigureManagementNetwork = 7;     // Configure Management Network
inline constexpr unsigned RestartManagementNetwork = 8;       // Restart Management Network
inline constexpr unsigned TestManagementNetwork = 9;          // Test Management Network
inline constexpr unsigned NetworkRestoreOptions = 10;         // Network Restore Options
inline constexpr unsigned ViewSupportInformation = 11;        // View Support Information
inline constexpr unsigned ViewSystemLogs = 12;                // View System Logs
inline constexpr unsigned TroubleshootingOptions = 13;        // Troubleshooting Options
inline constexpr unsigned ResetSystemConfiguration = 14;      // Reset System Configuration
inline constexpr unsigned ConfigureKeyboard = 15;             // Configure Keyboard
inline constexpr unsigned RestartManagementNetworkError = 16; // Restart Management Network: Error
inline constexpr unsigned EnableManagementNetworkError = 17;  // Enable Management Network: Error
inline constexpr unsigned DisableManagementNetworkError = 18; // Disable Management Network: Error
inline constexpr unsigned ManagementInterfaceNotFound = 19;   // Management network interface cannot be found.
inline constexpr unsigned ManagementInterfaceFailed =
    20; // Operation on the management network interface failed.
inline constexpr unsigned PasswordPaneHelp =
    21; // To prevent unauthorized access to this system, set the pa...
inline constexpr unsigned LockdownPaneHelp =
    22; // When enabled, lockdown mode prevents users from logging d...
inline constexpr unsigned ManagementNetworkPaneHelp =
    23; // To view or modify this host's management network settings...
inline constexpr unsigned RestartNetworkPaneHelp =
    24; // Restarting the management network interface may be requir...
inline constexpr unsigned TestNetworkPaneHelp =
    25; // To perform a brief network test, press <Enter>.  By defau...
inline constexpr unsigned NetworkRestorePaneHelp =
    26;                                     // To view various network restore options like full network...
inline constexpr unsigned LogListHelp = 27; // Press the corresponding key to view a log. Press <Q> to r...
inline constexpr unsigned TroubleshootingPaneHelp =
    28; // To view various troubleshooting mode options like Enable ...
inline constexpr unsigned ResetSystemPaneHelp =
    29; // Warning!  All system parameters will be reverted to their...
inline constexpr unsigned RemoveExtensionsPaneHelp =
    30; // Warning!  All custom extensions will be removed.  This op...
inline constexpr unsigned NetworkIdentityFromDhcp = 31; // Network identity acquired from DHCP server
inline constexpr unsigned KeyboardPaneHelp =
    32; // To select the layout type for the keyboard of this host, ...
inline constexpr unsigned ChangeDefaultPasswordReminder =
    33;                                             // Change default password to prevent unauthorized access
inline constexpr unsigned Unknown = 34;             // Unknown
inline constexpr unsigned Ipv4Address = 35;         // IPv4 Address
inline constexpr unsigned Ipv6Addresses = 36;       // IPv6 Addresses
inline constexpr unsigned AttributedAddresses = 37; // Attributed addresses
inline constexpr unsigned DefaultGateway = 38;      // Default Gateway
inline constexpr unsigned SubnetMask = 39;          // Subnet Mask
inline constexpr unsigned Hostname = 40;            // Hostname
inline constexpr unsigned PrimaryDnsServer = 41;    // Primary DNS Server
inline constexpr unsigned AlternateDnsServer = 42;  // Alternate DNS Server
inline constexpr unsigned Ipv6DnsServer = 43;       // IPv6 DNS Server
inline constexpr unsigned ConfigureManagementNetworkTitle = 44; // Configure Management Network
inline constexpr unsigned NetworkAdapters = 45;                 // Network Adapters
inline constexpr unsigned VlanOptional = 46;                    // VLAN (optional)
inline constexpr unsigned Ipv4Configuration = 47;               // IPv4 Configuration
inline constexpr unsigned Ipv6Configuration = 48;               // IPv6 Configuration
inline constexpr unsigned Ipv6Enabled = 49;                     // IPv6 is enabled.
inline constexpr unsigned Ipv6Disabled = 50;                    // IPv6 is disabled.
inline constexpr unsigned DnsConfiguration = 51;                // DNS Configuration
inline constexpr unsigned CustomDnsSuffixes = 52;               // Custom DNS Suffixes
inline constexpr unsigned NetworkAdaptersHelp =
    53;                                  // The adapters listed here provide the default network conn...
inline constexpr unsigned VlanHelp = 54; // A VLAN is a virtual network within a physical network. Be...
inline constexpr unsigned Ipv4ConfigurationHelp =
    55; // This host can obtain an IPv4 address and other networking...
inline constexpr unsigned Ipv6ConfigurationHelp =
    56; // This host can obtain IPv6 addresses and other networking ...
inline constexpr unsigned Ipv6SupportHelp =
    57; // This host can be configured to support IPv6. A restart of...
inline constexpr unsigned Ipv6EnabledAfterReboot =
    58; // The support for IPv6 will be enabled after the next reboot.
inline constexpr unsigned DnsConfigurationHelp =
    59; // If this host is configured using DHCP, DNS server address...
inline constexpr unsigned DnsSuffixesHelp =
    60; // When using short, unqualified names, DNS queries will att...
inline constexpr unsigned NetworkConfigurationError = 61;     // Network Configuration Error
inline constexpr unsigned NetworkRestoreOptionsTitle = 62;    // Network Restore Options
inline constexpr unsigned CreateStandardSwitch = 63;          // Create Standard Switch
inline constexpr unsigned CreatePortGroup = 64;               // Create Port Group
inline constexpr unsigned MigrateTesNicToStandardSwitch = 65; // Migrate Tessel NIC to Standard Switch
inline constexpr unsigned RestoreNetworkSettings = 66;        // Restore Network Settings
inline constexpr unsigned RestoreStandardSwitch = 67;         // Restore Standard Switch
inline constexpr unsigned RestoreKds = 68;                    // Restore kDS
inline constexpr unsigned CreateStandardSwitchHelp =
    69; // Create a new standard virtual switch by name and an uplin...
inline constexpr unsigned CreatePortGroupHelp =
    70; // Create a new port group by name and standard virtual swit...
inline constexpr unsigned MigrateTesNicHelp =
    71; // Migrate a tesnic to the standard virtual switch of a chos...
inline constexpr unsigned RestoreNetworkSettingsHelp =
    72; // Restoring the network settings will revert all network co...
inline constexpr unsigned RestoreStandardSwitchHelp =
    73;                                        // All management network and associated uplinks can be move...
inline constexpr unsigned RestoreKdsHelp = 74; // Reconfigure properties of misconfigured kDS Management ne...
inline constexpr unsigned NetworkAdaptersTitle = 75; // Network Adapters
inline constexpr unsigned NetworkAdaptersDialogBody =
    76; // Select the adapters for this host's default management ne...
inline constexpr unsigned NetworkAdaptersWarning = 77; // Network Adapters: Warning
inline constexpr unsigned AdaptersAlreadyUsed =
    78; // One or more of the selected adapters are already used for...
inline constexpr unsigned RemoveAdaptersQuestion =
    79;                                            // Remove these adapters from their current connections?
inline constexpr unsigned InvalidIpAddress = 80;   // Invalid IP address
inline constexpr unsigned ReenterIpv4Address = 81; // Please reenter a valid IPv4 address (x.x.x.x).
inline constexpr unsigned ReenterIpv6Network = 82; // Please reenter a valid IPv6 network address (x:x:x/x).
inline constexpr unsigned InvalidIpOrIpv6Address = 83;   // Invalid IP or IPv6 address.
inline constexpr unsigned InvalidSubnet = 84;            // Invalid subnet
inline constexpr unsigned ReenterSubnet = 85;            // Please reenter a valid subnet (x.x.x.x).
inline constexpr unsigned InvalidScope = 86;             // Invalid scope
inline constexpr unsigned NoLinkLocalStaticAddress = 87; // Cannot add a link-local address as static address.
inline constexpr unsigned InvalidGatewayAddress = 88;    // Invalid gateway address
inline constexpr unsigned ReenterGateway = 89;           // Please reenter a valid gateway address (x.x.x.x).
inline constexpr unsigned ReenterIpv6Gateway = 90; // Please reenter a valid IPv6 gateway address (x:x:x).
inline constexpr unsigned NoLinkLocalGateway =
    91; // Link-local addresses are not supported as default gateway.
inline constexpr unsigned InvalidDnsServerAddress = 92; // Invalid DNS server address
inline constexpr unsigned ReenterDnsServer = 93; // Please reenter a valid DNS server address (IP or IPv6).
inline constexpr unsigned InvalidVlanId = 94;    // Invalid VLAN ID
inline constexpr unsigned ReenterVlanId = 95;    // Please reenter a valid VLAN ID (1-4095).
inline constexpr unsigned VlanId4095Warning =
    96; // You entered a VLAN ID of 4095. This host will receive all...
inline constexpr unsigned VlanUnsetIsSafe =
    97;                                     // If you are unsure how to configure or use a VLAN, it is s...
inline constexpr unsigned VlanIdLabel = 98; // VLAN ID (1-4094, or 4095 to access all VLANs):
inline constexpr unsigned Ipv4ConfigurationTitle = 99; // IPv4 Configuration
inline constexpr unsigned Ipv4DialogBody =
    100;                                     // This host can obtain network settings automatically if yo...
inline constexpr unsigned DisableIpv4 = 101; // Disable IPv4 configuration for management network
inline constexpr unsigned DynamicIpv4 = 102; // Use dynamic IPv4 address and network configuration
inline constexpr unsigned StaticIpv4 = 103;  // Set static IPv4 address and network configuration:
inline constexpr unsigned Ipv6ConfigurationTitle = 104; // IPv6 Configuration
inline constexpr unsigned Ipv6DialogBody =
    105;                                       // This host can obtain network settings automatically if yo...
inline constexpr unsigned DisableIpv6 = 106;   // Disable IPv6 (restart required)
inline constexpr unsigned DynamicIpv6 = 107;   // Use dynamic IPv6 address and network configuration
inline constexpr unsigned UseDhcpv6 = 108;     // Use DHCPv6
inline constexpr unsigned StaticIpv6 = 109;    // Set static IPv6 address and network configuration
inline constexpr unsigned StaticAddress = 110; // Static address
inline constexpr unsigned DefaultGatewayLabel = 111;   // Default gateway
inline constexpr unsigned Warning = 112;               // Warning
inline constexpr unsigned NoAdapter = 113;             // No adapter
inline constexpr unsigned Automatic = 114;             // Automatic
inline constexpr unsigned None = 115;                  // None
inline constexpr unsigned Manual = 116;                // Manual
inline constexpr unsigned Set = 117;                   // Set
inline constexpr unsigned NotSet = 118;                // Not set
inline constexpr unsigned Enabled = 119;               // Enabled
inline constexpr unsigned Disabled = 120;              // Disabled
inline constexpr unsigned Done = 121;                  // Done.
inline constexpr unsigned DnsConfigurationTitle = 122; // DNS Configuration
inline constexpr unsigned DnsAutomaticNeedsDhcp =
    123;                                      // This host can only obtain DNS settings automatically if i...
inline constexpr unsigned DnsAutomatic = 124; // Obtain DNS server addresses and a hostname automatically
inline constexpr unsigned DnsManual = 125;    // Use the following DNS server addresses and hostname:
inline constexpr unsigned DnsSuffixesDialogBody =
    126;                                  // DNS queries will attempt to locate hosts by appending the...
inline constexpr unsigned Suffixes = 127; // Suffixes:
inline constexpr unsigned RestartManagementNetworkConfirm = 128; // Restart Management Network: Confirm
inline constexpr unsigned RestartNetworkWarning =
    129; // Restarting the management network will result in a brief ...
inline constexpr unsigned RestartNetworkQuestion = 130;        // Restart management network now?
inline constexpr unsigned RestartManagementNetworkTitle = 131; // Restart Management Network
inline constexpr unsigned RestartNetworkWait = 132; // Please wait while the management network restarts.
inline constexpr unsigned StoppingManagementNetwork = 133;  // Stopping management network.
inline constexpr unsigned StartingManagementNetwork = 134;  // Starting management network.
inline constexpr unsigned IpAddressIs = 135;                // IP address is
inline constexpr unsigned RestoreStandardSwitchTitle = 136; // Restore Standard Switch
inline constexpr unsigned RestoreStandardSwitchBody =
    137; // All management network and associated uplinks can be move...
inline constexpr unsigned RestoreStandardSwitchQuestion =
    138;                                          // Move the management network onto a standard switch?
inline constexpr unsigned ToManageThisHost = 139; // To manage this host, go to:
inline constexpr unsigned DhcpLookupFailedWarning =
    140; // Warning: DHCP lookup failed. You may be unable to access ...
inline constexpr unsigned AuditModeWarning =
    141; // Warning: Host is running in audit mode. Your configuratio...
inline constexpr unsigned AuthenticationRequired = 142; // Authentication Required
inline constexpr unsigned LoginPrompt = 143;            // Enter an authorized login name and password for
inline constexpr unsigned SmartCardPinPrompt = 144;     // Enter the smart card login PIN for
inline constexpr unsigned AuthenticationDenied = 145;   // Authentication Denied
inline constexpr unsigned ConsoleAccessDisabled =
    146; // Direct console access has been disabled by the administra...
inline constexpr unsigned LoginNameLabel = 147;         // Login Name:
inline constexpr unsigned LoginIdLabel = 148;           // Login Id:
inline constexpr unsigned PasswordLabel = 149;          // Password:
inline constexpr unsigned PinLabel = 150;               // PIN:
inline constexpr unsigned AuthenticationFailed = 151;   // Authentication failed
inline constexpr unsigned InvalidLoginOrPassword = 152; // Invalid login or password.
inline constexpr unsigned NoLoginPermission = 153;      // User does not have permission to login to TARN.
inline constexpr unsigned PasswordExpired =
    154; // Password has expired. You will be prompted to set a new p...
inline constexpr unsigned ConfigurePasswordTitle = 155; // Configure Password
inline constexpr unsigned PasswordDialogBody =
    156; // Setting the password will prevent unauthorized access to ...
inline constexpr unsigned OldPasswordLabel = 157;         // Old Password:
inline constexpr unsigned NewPasswordLabel = 158;         // New Password:
inline constexpr unsigned ConfirmPasswordLabel = 159;     // Confirm Password:
inline constexpr unsigned ConfigurePasswordError = 160;   // Configure Password: Error
inline constexpr unsigned ConfigurePasswordWarning = 161; // Configure Password: Warning
inline constexpr unsigned OldPasswordIncorrect = 162;     // The old password you entered is incorrect
inline constexpr unsigned PasswordsDoNotMatch =
    163; // The new password and the confirmed password do not match.
inline constexpr unsigned EmptyPasswordNotAllowed = 164; // Empty passwords are not allowed.
inline constexpr unsigned SamePasswordQuestion = 165; // New password is same as old password. Are you sure?
inline constexpr unsigned PasswordChangeFailed =
    166; // The password change operation failed. Please ensure that ...
inline constexpr unsigned ShutDownRestartTitle = 167; // Shut Down/Restart
inline constexpr unsigned ShutdownDialogBody =
    168; // Remote management software is recommended to safely shut ...
inline constexpr unsigned ForceTerminateVms = 169;  // Forcefully terminate running VMs, if any ...
inline constexpr unsigned ShutDownHost = 170;       // Shut Down Host
inline constexpr unsigned ShutdownInProgress = 171; // Shutdown in progress...
inline constexpr unsigned VmsRunningWarning = 172;  // Warning: VMs running on the host
inline constexpr unsigned VmsRunningQuestion =
    173;                                     // Host has VMs running. Are you sure you want to shutdown/r...
inline constexpr unsigned RestartHost = 174; // Restart Host
inline constexpr unsigned RestartInProgress = 175;               // Restart in progress...
inline constexpr unsigned ResetSystemConfigurationConfirm = 176; // Reset System Configuration: Confirm
inline constexpr unsigned ResetSystemWarning =
    177; // Warning! All system parameters will be reverted to their ...
inline constexpr unsigned ResetSystemQuestion = 178;           // Reset System Configuration now?
inline constexpr unsigned ResetSystemConfigurationTitle = 179; // Reset System Configuration
inline constexpr unsigned ResetSystemWait = 180; // Please wait while the default settings are restored.
inline constexpr unsigned ResetSystemDone =
    181; // Default settings are restored. Press <Enter> to restart y...
inline constexpr unsigned RemoveExtensionsConfirm = 182;  // Remove Custom Extensions: Confirm
inline constexpr unsigned RemoveExtensionsWarning = 183;  // Warning! All custom extensions will be removed.
inline constexpr unsigned RemoveExtensionsQuestion = 184; // Remove custom extensions now?
inline constexpr unsigned RemoveCustomExtensions = 185;   // Remove Custom Extensions
inline constexpr unsigned RemoveExtensionsWait = 186; // Please wait while the custom extensions are removed.
inline constexpr unsigned RemoveExtensionsDone =
    187; // Custom extensions have been removed. Press <Enter> to res...
inline constexpr unsigned RestoreNetworkFactorySettings = 188; // Restore Network Factory Settings
inline constexpr unsigned RestoreFactoryHelp =
    189; // This option will reset the host network configuration to ...
inline constexpr unsigned RestoreFactoryQuestion =
    190; // Are you sure you want to reset the host network configura...
inline constexpr unsigned RestoreDefaultBlocked = 191; // Restore to default blocked setting (unblocked)
inline constexpr unsigned SelectKdsUplinks = 192;      // Select kDS uplinks
inline constexpr unsigned EnterValidVlanId = 193;      // Please enter a valid VLAN ID (1-4094).
inline constexpr unsigned RestoreKdsTitle = 194;       // Restore kDS
inline constexpr unsigned RestoreKdsDialogBody =
    195; // Enter the properties for new kDS host local port that wil...
inline constexpr unsigned RestoreKdsError = 196;  // Restore kDS: Error
inline constexpr unsigned RestoreKdsFailed = 197; // Unable to restore kDS. Check logs for details.
inline constexpr unsigned RestoreKdsThirdParty =
    198;                                    // Unable to restore kDS. Restore kDS operation cannot be pe...
inline constexpr unsigned KdsUplinks = 199; // kDS Uplinks
inline constexpr unsigned KdsUplinksDialogBody =
    200; // Select the kDS Uplinks (one or more) to be used by manage...
inline constexpr unsigned KdsUplinksWarning = 201;   // kDS Uplinks: Warning
inline constexpr unsigned NoUplinksSelected = 202;   // No uplinks were selected.
inline constexpr unsigned ContinueQuestion = 203;    // Do you want to continue?
inline constexpr unsigned NoKdsUplinksError = 204;   // No kDS Uplinks: Error
inline constexpr unsigned NoUplinksConfigured = 205; // No uplinks are configured on the host for this kDS.
inline constexpr unsigned RestoreNetworkSettingsTitle = 206; // Restore Network Settings
inline constexpr unsigned RestoreFactoryWait =
    207; // Please wait while the factory network settings are restored.
inline constexpr unsigned PoweringOffVms = 208;                    // Powering Off VMs.
inline constexpr unsigned AutoConfiguringNetwork = 209;            // Auto-configuring network.
inline constexpr unsigned ConfigureManagementNetworkConfirm = 210; // Configure Management Network: Confirm
inline constexpr unsigned NetworkChangesWarning =
    211; // You have made changes to the host's management network. A...
inline constexpr unsigned ApplyAndRestartNetworkQuestion =
    212;                                                    // Apply changes and restart management network?
inline constexpr unsigned ApplyAndRebootQuestion = 213;     // Apply changes and reboot host?
inline constexpr unsigned TestManagementNetworkTitle = 214; // Test Management Network
inline constexpr unsigned TestNetworkDialogBody =
    215;                                     // By default, this test will attempt to ping your default g...
inline constexpr unsigned PingAddress = 216; // Ping Address
inline constexpr unsigned ResolveHostname = 217;             // Resolve Hostname
inline constexpr unsigned TestingManagementNetwork = 218;    // Testing Management Network
inline constexpr unsigned TestMayBeInterrupted = 219;        // You may interrupt the test at any time.
inline constexpr unsigned PingingAddress = 220;              // Pinging address
inline constexpr unsigned ResolvingHostname = 221;           // Resolving hostname
inline constexpr unsigned Failed = 222;                      // Failed.
inline constexpr unsigned Ok = 223;                          // OK.
inline constexpr unsigned TroubleshootingModeOptions = 224;  // Troubleshooting Mode Options
inline constexpr unsigned EnableCorlaShell = 225;            // Enable Corla Shell
inline constexpr unsigned DisableCorlaShell = 226;           // Disable Corla Shell
inline constexpr unsigned EnableSsh = 227;                   // Enable SSH
inline constexpr unsigned DisableSsh = 228;                  // Disable SSH
inline constexpr unsigned CorlaShell = 229;                  // Corla Shell
inline constexpr unsigned SshSupport = 230;                  // SSH Support
inline constexpr unsigned ModifyCorlaShellSshTimeouts = 231; // Modify Corla Shell and SSH timeouts
inline constexpr unsigned ModifyTarnIdleTimeout = 232;       // Modify TARN idle timeout
inline constexpr unsigned RestartManagementAgents = 233;     // Restart Management Agents
inline constexpr unsigned ChangeCorlaShellState = 234;       // Change current state of the Corla Shell
inline constexpr unsigned ChangeSshState = 235;              // Change current state of SSH
inline constexpr unsigned CorlaShellEnabled = 236;           // Corla Shell is Enabled
inline constexpr unsigned CorlaShellDisabled = 237;          // Corla Shell is Disabled
inline constexpr unsigned SshEnabled = 238;                  // SSH is Enabled
inline constexpr unsigned SshDisabled = 239;                 // SSH is Disabled
inline constexpr unsigned RestartAgentsHelp =
    240; // The management agents are the programs that allow remote ...
inline constexpr unsigned ShellTimeoutsHelp =
    241; // Modify the number of minutes that can elapse before you m...
inline constexpr unsigned IdleTimeoutHelp =
    242; // Modify the number of idle minutes that can elapse before ...
inline constexpr unsigned RestartAgentsConfirm = 243; // Restart Management Agents: Confirm
inline constexpr unsigned RestartAgentsWarning =
    244; // {color:red}Warning! Restarting the management agents will...
inline constexpr unsigned RestartAgentsQuestion = 245;      // Restart management agents now?
inline constexpr unsigned StoppingManagementAgents = 246;   // Stopping management agents.
inline constexpr unsigned StartingManagementAgents = 247;   // Starting management agents.
inline constexpr unsigned CollectTroubleshootingInfo = 248; // Collect extra troubleshooting information
inline constexpr unsigned CollectingLiveCore = 249;         // Collecting host agent live core information.
inline constexpr unsigned PleaseWait = 250;                 // Please, wait ...
inline constexpr unsigned ConfigureLockdownModeTitle = 251; // Configure Lockdown Mode
inline constexpr unsigned LockdownDialogBody =
    252; // When enabled, lockdown mode prevents users from logging d...
inline constexpr unsigned EnableLockdownMode = 253; // Enable lockdown mode
inline constexpr unsigned KeyboardDialogBody =
    254; // If you are having difficulty using your keyboard, choose ...
inline constexpr unsigned EnableIpv6RestartRequired = 255; // Enable IPv6: Restart Required
inline constexpr unsigned Ipv6EnabledAfterRestart =
    256; // This host must be restarted before IPv6 will be enabled.
inline constexpr unsigned DisableIpv6RestartRequired = 257; // Disable IPv6: Restart Required
inline constexpr unsigned Ipv6DisabledAfterRestart =
    258;                                          // This host must be restarted before IPv6 will be disabled.
inline constexpr unsigned RouterAdvertised = 259; // Router advertised
inline constexpr unsigned Dhcp = 260;             // DHCP
inline constexpr unsigned Static = 261;           // STATIC
inline constexpr unsigned Autoconf = 262;         // AUTOCONF
inline constexpr unsigned WaitingForDhcp = 263;   // Waiting for DHCP...
inline constexpr unsigned ShellTimeoutsTitle =
    264; // Set the timeouts for Corla Shell access (local and remote)
inline constexpr unsigned ShellTimeoutsBody =
    265; // Set the number of minutes that can elapse before you must...
inline constexpr unsigned AvailabilityTimeout = 266; // Availability timeout
inline constexpr unsigned IdleTimeout = 267;         // Idle timeout
inline constexpr unsigned InvalidTimeout = 268;      // Invalid timeout value
inline constexpr unsigned TimeoutRange = 269; // Timeout value must be between 0 (disabled) and 1440 minutes
inline constexpr unsigned IdleTimeoutTitle = 270; // Set idle timeout for TARN access
inline constexpr unsigned IdleTimeoutBody =
    271; // Set the number of idle minutes that can elapse before you...
inline constexpr unsigned TarnIdleTimeoutLabel = 272; // TARN idle timeout
inline constexpr unsigned OperationFailed = 273;      // Operation Failed
inline constexpr unsigned OperationSucceeded = 274;   // Operation Succeeded
inline constexpr unsigned OperationCancelled = 275;   // Operation Cancelled
inline constexpr unsigned CreatePortGroupBody =
    276;                                     // Enter the properties for the new port group that will be ...
inline constexpr unsigned CheckSyslog = 277; // Please check the syslog for more information.
inline constexpr unsigned InvalidArgument = 278;         // Invalid Argument
inline constexpr unsigned EnterValidPortGroupName = 279; // Please enter a valid port group name.
inline constexpr unsigned StandardSwitchDetails = 280;   // Standard Switch Details
inline constexpr unsigned SwitchNameLabel = 281;         // Switch Name:
inline constexpr unsigned CreatedPortGroup = 282;        // Successfully created portgroup:
inline constexpr unsigned PortGroupNameLabel = 283;      // Portgroup Name:
inline constexpr unsigned UplinkInUse = 284;             // Uplink is already in use
inline constexpr unsigned EnterValidSwitchName = 285;    // Please enter a valid standard switch name.
inline constexpr unsigned CreatedStandardSwitch = 286;   // Successfully created standard virtual switch:
inline constexpr unsigned CreateStandardSwitchBody =
    287; // Enter the properties for new standard kSwitch that will b...
inline constexpr unsigned MigrateTesNicBody =
    288; // Please choose which Tessel NIC should be migrated to whic...

} // namespace Tarn::TextId
