// The welcome screen: its two layouts, filling them from the host, and the keys that lead to login, the
// System Customization menu and shut-down, with the log-out records of each session.
#include "screens/WelcomeWindow.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Report.h"
#include "core/Session.h"
#include "core/Terminal.h"
#include "screens/GeneralWindow.h"
#include "screens/LoginDialog.h"
#include "screens/ShutdownDialog.h"
#include "screens/WelcomeFacts.h"
#include "screens/WelcomeLayout.h"
#include "screens/WelcomeText.h"
#include "ui/RunWindow.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

#include <cstdlib>

namespace Tarn {
namespace {

bool gAlternatePalette = false;
// The no-adapter alert is raised at most once per process, however often the screen is drawn.
bool gNoAdapterAlertSent = false;

TextArea* AddText(Window* parent, const WelcomeRect& r, int foreground) {
    return parent->AddChild<TextArea>(r.column, r.row, r.width, r.height, foreground, -1);
}

} // namespace

bool AlternatePalette() {
    return gAlternatePalette;
}

WelcomeWindow::WelcomeWindow()
    : Frame(nullptr, 0, 0, ScreenColumns(), ScreenLines(), Color::ScreenBackground, Color::Text) {
    // Only built here: the modal run draws the frame once, and that draw is the first paint.
    Build();
}

WelcomeWindow::~WelcomeWindow() = default;

void WelcomeWindow::Draw() {
    Build();
    Draw(true);
}

void WelcomeWindow::Build() {
    const std::string message = ReadWelcomeMessage(system_);
    if (!message.empty()) {
        ShowWelcomeMessage(message);
        return;
    }
    if (message_ != nullptr) {
        delete message_;
        message_ = nullptr;
    }
    if (top_ == nullptr) {
        Erase();
        CreateHalves();
    }
    Fill();
}

void WelcomeWindow::ShowWelcomeMessage(const std::string& message) {
    DestroyHalves();
    if (message_ == nullptr) {
        Erase();
        DrawBorder();
        message_ = AddText(this, ComputeWelcomeGeometry(Width(), Height()).message, 7);
    }
    message_->SetText(message);
}

void WelcomeWindow::CreateHalves() {
    const WelcomeGeometry g = ComputeWelcomeGeometry(Width(), Height());
    const WelcomePalette colors = WelcomeHalfColors(gAlternatePalette);
    top_ = AddChild<Window>(g.top.column, g.top.row, g.top.width, g.top.height, colors.top.background,
                            colors.top.foreground);
    bottom_ = AddChild<Window>(g.bottom.column, g.bottom.row, g.bottom.width, g.bottom.height,
                               colors.bottom.background, colors.bottom.foreground);
    // The halves share the frame's cells, so the border lands on them and takes their colours.
    DrawBorder();
    warning_ = AddText(bottom_, g.warning, 6);
    footer_ = AddText(bottom_, g.footer, 0);
    footer_->SetText(WelcomeFooter(Strings()));
}

void WelcomeWindow::DestroyHalves() {
    // Deleting a half deletes the text areas inside it.
    delete top_;
    delete bottom_;
    top_ = bottom_ = nullptr;
    header_ = hardware_ = cpuMemory_ = management_ = warning_ = footer_ = nullptr;
}

void WelcomeWindow::Fill() {
    const WelcomeFacts facts = ReadWelcomeFacts(dns_);
    if (header_ == nullptr) {
        const WelcomeGeometry g = ComputeWelcomeGeometry(Width(), Height());
        header_ = AddText(top_, g.header, -1);
        hardware_ = AddText(top_, g.hardware, -1);
        cpuMemory_ = AddText(top_, g.cpuMemory, -1);
        management_ = AddText(bottom_, g.management, 0);
    }

    const WelcomeNetworkFacts& net = facts.network;
    const unsigned warning = WarningTextId(net.dhcp, net.dhcpServerKnown, facts.auditMode);
    warning_->SetText(warning != 0 ? Text(warning) : "");

    if (!facts.hasAdapters) {
        management_->SetText(kNoAdapterMessage);
        if (!gNoAdapterAlertSent) {
            RaiseSystemAlert(system_, kNoAdapterAlert);
            gNoAdapterAlertSent = true;
        }
    } else {
        management_->SetText(ManagementText(Strings(), net));
    }
    SetTopTexts(facts);
}

void WelcomeWindow::SetTopTexts(const WelcomeFacts& facts) {
    header_->SetText(Text(TextId::VersionLine));
    hardware_->SetText(HardwareLine(facts.vendor, facts.product));
    cpuMemory_->SetText(
        CpuAndMemoryText(facts.cpuPackages, facts.cpuModel, facts.totalPages, facts.pageSize));
}

int WelcomeWindow::Foreground() {
    for (;;) {
        OnKey(GetKey(this, false));
        // Whatever the key led to, the idle time-out applies only inside a session, and a restart asked
        // for during one is carried out now that it is over.
        SetSessionActive(false);
        if (RestartPending())
            std::exit(0);
    }
}

void WelcomeWindow::OnKey(int key) {
    try {
        if (key == Key::F(2) || key == Key::F(12)) {
            Login(key == Key::F(2));
            return;
        }
        if (key == Key::F(4) && !Monochrome()) {
            gAlternatePalette = !gAlternatePalette;
            DestroyHalves(); // rebuilt in the other colours
            Draw();
            return;
        }
        Redraw(); // the whole screen is sent again: whatever garbled it goes away
        Draw();
    } catch (const TarnTimeout&) {
        // A login or shut-down dialog left alone: nobody is in a session, the screen just comes back.
        Redraw();
        Draw();
    }
}

void WelcomeWindow::Login(bool menu) {
    if (!LoginAllowed()) {
        ShowLoginDisabled(this);
        return;
    }
    bool authenticated;
    {
        // One dialog per attempt, gone before the next screen opens.
        LoginDialog login(this);
        authenticated = RunWindow(&login) != 0;
    }
    if (!authenticated)
        return;
    if (menu) {
        RunSession();
        return;
    }
    ShutdownDialog shutdown(this);
    RunWindow(&shutdown);
    Draw();
}

void WelcomeWindow::RunSession() {
    SetSessionActive(true);
    bool timedOut = false;
    try {
        GeneralWindow general(this);
        RunWindow(&general);
    } catch (const TarnTimeout&) {
        timedOut = true;
    }
    SetSessionActive(false);
    const std::string& user = LoggedInUser();
    if (timedOut) {
        Log(LOG_INFO, "User %s logged out due to time out", user.c_str());
        ReportLogout(user, "Time out");
        Redraw();
    } else {
        Log(LOG_INFO, "User %s logged out", user.c_str());
        ReportLogout(user, "Session closed");
    }
    Draw();
}

} // namespace Tarn
