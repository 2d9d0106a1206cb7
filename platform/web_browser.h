// A web browser inside a window.
#pragma once

#include <string>

namespace quillet {

/// What a browser is to show and where: place and size in the client area of its window, in
/// twips. The window that shows it reads them when it opens.
struct WebBrowser {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    std::string address;

    void Navigate2(std::string target) { address = std::move(target); }
};

} // namespace quillet
