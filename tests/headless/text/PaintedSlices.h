// The slices that painting a text hands to the platform.
#pragma once

#include "tests/support/Host.h"

#include <gtest/gtest.h>
#include <platform/headless/headless.h>

#include <functional>
#include <string>
#include <vector>

namespace test {

// Each as: "text" (x,y) width script, and with `fonts` its font behind that.
inline std::vector<std::string> PaintedSlices(const std::function<void(HDC)>& paint, bool fonts = false)
{
    const Host host;
    gesso::headless::ClearDrawing(host);
    const HDC hdc = GetDC(host);
    paint(hdc);
    ReleaseDC(host, hdc);
    std::vector<std::string> lines = gesso::headless::Drawing(host);
    for (std::string& line : lines) {
        constexpr std::string_view OPERATION = "ScriptTextOut ";
        EXPECT_TRUE(line.starts_with(OPERATION)) << line;
        line = line.substr(OPERATION.size(), line.find(fonts ? " color=" : " font=") - OPERATION.size());
    }
    return lines;
}

} // namespace test
