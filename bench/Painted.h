// Every kind of control as it paints, for benches that set one look of it beside another.
#pragma once

#include <bench/Bench.h>

namespace bench {

// Makes each kind in turn in a host, calls the function with its name and window, and destroys it.
void ForEachPainted(HWND hwndHost, const std::function<void(const std::string&, HWND)>& measure);

// Of one paint with its frame, in microseconds; what is made at the first paint is there by then.
double TimeOfPaint(HWND hwnd);

} // namespace bench
