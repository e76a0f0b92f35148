// The invariants of a prepared text, for tests and the fuzzer.
#pragma once

#include <gesso/text/CDrawText.h>

#include <string>

namespace test {

// What is wrong with a buffer that DrawText_Prepare_Int or DrawText_Calculate_Optimized with DrawText_Break
// has made; empty if nothing is.
std::string CheckText(const stcDrawTextBuffer& buffer);

// The same for its lines alone, whatever glyphs and widths they were made of.
std::string CheckLines(const stcDrawTextBuffer& buffer);

} // namespace test
