#pragma once
// One column of a list box: its heading and its width in pixels. Item text
// is split into columns at tab characters.
#include <string>

class ListBoxColumn {
public:
    ListBoxColumn(std::string name, int width) : name(std::move(name)), width(width) {}

    std::string name;
    int width = 0;
};
