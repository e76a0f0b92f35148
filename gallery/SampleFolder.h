// A small tree of files that the explorer may change as it likes.
#pragma once

#include <string>

namespace gallery {

// Its path, below the user's temporary files. What is missing of it is made anew.
std::wstring SampleFolder();

// Whether a path is that folder's or lies in it.
bool IsInSampleFolder(const std::wstring& path);

} // namespace gallery
