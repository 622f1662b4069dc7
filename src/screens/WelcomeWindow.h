// TEMPORARY ROOT SCREEN: stands in for the welcome screen until that is built. A plain full-screen frame
// with the product line and a hint; F2 opens a notification. Runs until the process ends.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class WelcomeWindow : public Frame {
public:
    WelcomeWindow();

    int Foreground() override;

private:
    TextArea* product_ = nullptr;
    TextArea* hint_ = nullptr;
};

} // namespace Tarn
