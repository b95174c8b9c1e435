#pragma once
// Text forms shared by the value types: level files, save games and the
// console all read and write numbers this way, so it must stay stable.
#include <string>
#include <vector>

// Splits at any character of `separators`; empty tokens are dropped.
std::vector<std::string> splitTokens(const std::string& text, const std::string& separators);

// Standard stream formatting of a float: six significant digits, no trailing zeros.
std::string formatFloat(float value);

// atof semantics: text that is not a number reads as 0.
float parseFloat(const std::string& token);

// A comma-separated list read where it stands, empty items dropped and each
// item read as parseFloat reads it: the first `most` go to `out`, and the
// result is how many items the text holds. Levels hold thousands of these,
// and a string per item cost more than parsing the file.
int readFloatList(const char* text, float* out, int most);
