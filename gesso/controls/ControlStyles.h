// Window style bits that the text controls share. The low four are DT_CENTER, DT_RIGHT, DT_VCENTER and
// DT_BOTTOM.
#pragma once

#include <gesso/api.h>

constexpr DWORD GS_CENTER = 0x0001;    // centre horizontally; left without this and GS_RIGHT
constexpr DWORD GS_RIGHT = 0x0002;     // align right
constexpr DWORD GS_VCENTER = 0x0004;   // centre vertically; top without this and GS_BOTTOM
constexpr DWORD GS_BOTTOM = 0x0008;    // align to the bottom
constexpr DWORD GS_ICON = 0x0010;      // show the image as an icon
constexpr DWORD GS_BITMAP = 0x0020;    // show the image as a bitmap
constexpr DWORD GS_MULTILINE = 0x0100; // wrap the text at words rather than draw one line
constexpr DWORD GBS_DEFAULT = 0x4000;  // the default button of a dialog

// Check boxes and radio buttons.
constexpr DWORD GCS_IMAGERIGHT = 0x0040; // the image to the right of the text rather than left
constexpr DWORD GCS_BOXRIGHT = 0x0080;   // the box to the right of the text rather than left
