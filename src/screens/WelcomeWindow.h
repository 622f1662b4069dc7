// The console's root screen while nobody is logged in: the host's identity in the top half, where to manage
// it in the bottom half, and the F2/F12 keys into login, the System Customization menu and shut-down. An
// administrator's custom welcome message replaces all of it.
#pragma once

#include "platform/DnsConfig.h"
#include "platform/SystemInfo.h"
#include "ui/Window.h"

namespace Tarn {

class TextArea;
struct WelcomeFacts;

// Whether F4 has switched the welcome screen to its alternate palette (process-wide).
bool AlternatePalette();

class WelcomeWindow : public Frame {
public:
    // Builds and fills the screen, so that the modal run's first draw already shows the host's data.
    WelcomeWindow();
    ~WelcomeWindow() override;

    // The key loop; ends only with the program.
    int Foreground() override;

    using Frame::Draw;
    // Chooses the layout, fills it with fresh host data and shows it.
    void Draw();

private:
    // Sets up the layout for the current message and data without showing it.
    void Build();
    void Fill();
    void ShowWelcomeMessage(const std::string& message);
    void DestroyHalves();
    void CreateHalves();
    void SetTopTexts(const WelcomeFacts& facts);

    void OnKey(int key);
    // Log in, then the menu (`menu`) or the shut-down dialog.
    void Login(bool menu);
    void RunSession();

    TesCtl::System::SystemInfoImpl system_;
    TesCtl::Network::DnsConfigImpl dns_;

    // Default layout; null in the custom-message layout.
    Window* top_ = nullptr;
    Window* bottom_ = nullptr;
    TextArea* header_ = nullptr;
    TextArea* hardware_ = nullptr;
    TextArea* cpuMemory_ = nullptr;
    TextArea* management_ = nullptr;
    TextArea* warning_ = nullptr;
    TextArea* footer_ = nullptr;
    // Custom-message layout; null in the default layout.
    TextArea* message_ = nullptr;
};

} // namespace Tarn
